#!/usr/bin/python3
"""Joins the results of the benchmark programs to one table and one picture.

usage: table.py FOLDER    reads FOLDER/*.json, writes FOLDER/table.txt and, where matplotlib is
                          installed, FOLDER/ratios.png
"""
import collections
import fnmatch
import json
import math
import pathlib
import sys

# What must hold: the peer's time over ours, or ours alone in ns an item.
MUST_RATIO = [
    ("decode", "*", "liblzf", 1.0), ("encode", "*", "liblzf", 0.7),
    ("save cloud", "*", "pcl", 1.4), ("load cloud", "*", "pcl", 1.7),
    ("save cloud", "100 points", "plain", 1.0), ("load cloud", "100 points", "plain", 1.0),
    ("save range image", "*", "png", 2.5), ("load range image", "*", "png", 4.5),
    ("deep copy", "*", "memcpy", 0.9), ("append*", "*", "memcpy", 0.9),
    ("product", "?x?", "cv_mat", 10), ("sum", "?x?", "cv_mat", 10), ("copy", "?x?", "cv_mat", 10),
    ("inverse", "3x3", "cv_mat", 15), ("inverse", "4x4", "cv_mat", 2.5),
]
MUST_NS = [
    ("cloud from floats", "300000", 3.5), ("cloud from floats", "3000000", 12),
    ("count valid", "10000,*", 0.8), ("count valid", "9900000,*", 2.6),
    ("product", "quaternion", 4), ("rotate", "direction", 6.2), ("slerp", "quaternion", 92),
]


def read(folder):
    """Median seconds an item, or a call, and bytes an item by (operation, set) and competitor."""
    times = collections.defaultdict(dict)
    sizes = collections.defaultdict(dict)
    for path in sorted(folder.glob("*.json")):
        samples = collections.defaultdict(list)
        for run in json.loads(path.read_text())["benchmarks"]:
            if run.get("run_type") == "iteration" and not run.get("error_occurred"):
                operation, data, competitor = run["name"].split("/")[:3]
                samples[operation, data, competitor].append(run)
        for (operation, data, competitor), runs in samples.items():
            seconds = sorted(run.get("item", run["cpu_time"] * 1e-9) for run in runs)
            times[operation, data][competitor] = seconds[len(seconds) // 2]
            if "bytes" in runs[0]:
                sizes[operation, data][competitor] = runs[0]["bytes"]
    return times, sizes


def musts(operation, data, peer, ours, ratio):
    """What must hold in this row, each with whether it does."""
    for name, of, against, least in MUST_RATIO:
        if peer == against and fnmatch.fnmatch(operation, name) and fnmatch.fnmatch(data, of):
            yield f"{least:g}x", ratio >= least
            break
    for name, of, most in MUST_NS:
        if fnmatch.fnmatch(operation, name) and fnmatch.fnmatch(data, of):
            yield f"{most:g} ns", ours * 1e9 <= most


def rows(times, sizes):
    for (operation, data), by in times.items():
        if "ours" not in by:
            continue
        ours = by["ours"]
        for peer, theirs in by.items():
            if peer == "ours":
                continue
            size = sizes[operation, data]
            found = list(musts(operation, data, peer, ours, theirs / ours))
            yield {"operation": operation, "data": data, "peer": peer, "ours": ours,
                   "theirs": theirs, "ratio": theirs / ours,
                   "size": size["ours"] / size[peer] if peer in size and "ours" in size else None,
                   "must": ", ".join(f"{text} {'met' if held else 'MISSED'}"
                                     for text, held in found)}


def mean(ratios):
    return math.exp(sum(map(math.log, ratios)) / len(ratios))


def table(all_rows):
    yield (f"{'operation':24}{'data':28}{'peer':26}{'ours ns':>10}{'peer ns':>10}{'ratio':>8}"
           f"{'size':>7}  must")
    for r in all_rows:
        size = "" if r["size"] is None else f"{r['size']:.3f}"
        yield (f"{r['operation']:24}{r['data']:28}{r['peer']:26}{r['ours'] * 1e9:10.2f}"
               f"{r['theirs'] * 1e9:10.2f}{r['ratio']:8.2f}{size:>7}  {r['must']}").rstrip()
    yield ""
    yield "Geometric means of the ratios (above 1: we are faster)"
    for (operation, peer), ratios in grouped(all_rows).items():
        yield f"{operation:24}{peer:26}{mean(ratios):8.2f}"


def grouped(all_rows):
    groups = collections.defaultdict(list)
    for r in all_rows:
        groups[r["operation"], r["peer"]].append(r["ratio"])
    return groups


def draw(all_rows, path):
    import matplotlib
    matplotlib.use("Agg")
    import matplotlib.pyplot as plt
    groups = sorted(grouped(all_rows).items())
    labels = [f"{operation}  vs  {peer}" for (operation, peer), _ in groups]
    means = [mean(ratios) for _, ratios in groups]
    fig, ax = plt.subplots(figsize=(10, 0.32 * len(groups) + 1.6))
    places = range(len(groups))
    ax.barh(places, [m - 1 for m in means], left=1, height=0.6,
            color=["#2a7fb8" if m >= 1 else "#d1603d" for m in means])
    for place, (_, ratios) in zip(places, groups):
        ax.plot(ratios, [place] * len(ratios), "|", color="#333333", markersize=7, alpha=0.7)
    for place, m in zip(places, means):
        ax.annotate(f"{m:.2g}x", (max(1, m, *groups[place][1]), place), xytext=(6, 0),
                    textcoords="offset points", va="center", fontsize=8)
    ax.set_xscale("log")
    ax.axvline(1, color="black", linewidth=0.8)
    ax.set_yticks(list(places), labels, fontsize=8)
    ax.invert_yaxis()
    ax.margins(x=0.12, y=0.01)
    ax.xaxis.set_major_formatter(matplotlib.ticker.FuncFormatter(lambda v, _: f"{v:g}x"))
    ax.grid(axis="x", color="#dddddd", linewidth=0.6)
    ax.set_axisbelow(True)
    for side in ("top", "right", "left"):
        ax.spines[side].set_visible(False)
    ax.set_title("The peer's time over ours: bars are means, ticks the data sets", fontsize=10)
    fig.tight_layout()
    fig.savefig(path, dpi=120)


def main():
    folder = pathlib.Path(sys.argv[1])
    all_rows = list(rows(*read(folder)))
    if not all_rows:
        sys.exit("table: no results")
    text = "\n".join(table(all_rows)) + "\n"
    (folder / "table.txt").write_text(text)
    print(text, end="")
    try:
        draw(all_rows, folder / "ratios.png")
    except ImportError:
        print("table: no picture without python3-matplotlib", file=sys.stderr)


main()
