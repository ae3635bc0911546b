#!/usr/bin/python3
"""Joins the results of the benchmark programs to one table and one picture.

usage: table.py FOLDER    reads FOLDER/*.json, writes FOLDER/table.txt and, where matplotlib is
                          installed, FOLDER/ratios.png; exits with 1, behind that, where a
                          benchmark failed
"""
import collections
import fnmatch
import json
import math
import pathlib
import sys

# What must hold: the peer's time over ours, the size over the peer's at the most (None: any), or
# ours alone in ns an item. The first that fits a row counts. Of entropy 1.013 is 1.035 times the
# bytes as they are.
MUST_RATIO = [
    ("decode*", "*", "liblzf", 1.0, None),
    ("encode", "entropy-xyz", "liblzf", 3, 1.013), ("encode", "constant-xyz", "liblzf", 4, None),
    ("encode", "milk-xyz", "liblzf", 0.9, 1.01), ("encode", "frag115-xyz", "liblzf", 0.9, 1.01),
    ("encode", "autzen-xyz", "liblzf", 0.7, 1.01), ("encode", "decimals-xyz", "liblzf", 0.7, 1.01),
    ("encode", "sheet-*", "liblzf", 0.7, 1.01), ("encode", "*-colours", "liblzf", 0.7, 1.01),
    ("encode", "*-faces", "liblzf", 0.7, 1.01), ("encode", "rgbd-rows", "liblzf", 1.0, 0.93),
    ("encode", "*-rows", "liblzf", 0.8, 0.93), ("encode", "*", "liblzf", 1.4, 1.03),
    *(("encode", data, "plain", 1.2, None)
      for data in ("autzen-xyz", "decimals-xyz", "*-colours", "*-faces")),
    ("save cloud", "100 points", "plain", 1.0, None),
    ("load cloud", "100 points", "plain", 1.0, None),
    ("save cloud", "*", "plain", 2.0, None), ("load cloud", "*", "pcl", 1.7, None),
    ("save range image", "*", "png", 2.5, None), ("load range image", "*", "png", 4.5, None),
    ("deep copy", "*", "memcpy", 0.9, None), ("append*", "*", "memcpy", 0.9, None),
    ("product", "?x?", "cv_mat", 10, None), ("sum", "?x?", "cv_mat", 10, None),
    ("copy", "?x?", "cv_mat", 10, None), ("inverse", "3x3", "cv_mat", 15, None),
    ("inverse", "4x4", "cv_mat", 2.5, None),
    ("product", "quaternion", "eigen", 0.7, None), ("slerp", "quaternion", "eigen", 0.46, None),
    ("rotate", "direction", "eigen not renormalised", 0.73, None),
]
# The same of the mean over all data.
MUST_MEAN = [("decode*", "liblzf", 1.7), ("save cloud", "pcl", 1.4)]
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
        runs = json.loads(path.read_text())["benchmarks"]
        # Random interleaving leaves them in no order.
        for run in sorted(runs, key=lambda run: run.get("family_index", 0)):
            if run.get("run_type") == "iteration" and not run.get("error_occurred"):
                operation, data, competitor = run["name"].split("/")[:3]
                samples[operation, data, competitor].append(run)
        for (operation, data, competitor), runs in samples.items():
            seconds = sorted(run.get("item", run["cpu_time"] * 1e-9) for run in runs)
            times[operation, data][competitor] = seconds[len(seconds) // 2]
            if "bytes" in runs[0]:
                sizes[operation, data][competitor] = runs[0]["bytes"]
    return times, sizes


def failures(folder):
    """The rows whose call failed, each once, and why."""
    return list(dict.fromkeys(
        f"{run['name']}: {run.get('error_message', 'failed')}"
        for path in sorted(folder.glob("*.json"))
        for run in json.loads(path.read_text())["benchmarks"] if run.get("error_occurred")))


def musts(operation, data, peer, ours, ratio, size):
    """What must hold in this row, each with whether it does."""
    for name, of, against, least, most in MUST_RATIO:
        if peer == against and fnmatch.fnmatch(operation, name) and fnmatch.fnmatch(data, of):
            yield f"{least:g}x", ratio >= least
            if most is not None:
                yield f"size {most:g}", size is not None and size <= most
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
            both = sizes[operation, data]
            size = both["ours"] / both[peer] if peer in both and "ours" in both else None
            found = list(musts(operation, data, peer, ours, theirs / ours, size))
            yield {"operation": operation, "data": data, "peer": peer, "ours": ours,
                   "theirs": theirs, "ratio": theirs / ours, "size": size,
                   "must": joined(found)}


def joined(found):
    return ", ".join(f"{text} {'met' if held else 'MISSED'}" for text, held in found)


def mean_musts(operation, peer, ratio):
    return [(f"{least:g}x", ratio >= least) for name, against, least in MUST_MEAN
            if peer == against and fnmatch.fnmatch(operation, name)]


def mean(ratios):
    return math.exp(sum(map(math.log, ratios)) / len(ratios))


def table(all_rows):
    yield "Times are ns of a point, pixel, value or element, or of a call; sizes are ours over theirs"
    yield (f"{'operation':24}{'data':28}{'peer':26}{'ours ns':>12}{'peer ns':>12}{'ratio':>8}"
           f"{'size':>7}  must")
    for r in all_rows:
        size = "" if r["size"] is None else f"{r['size']:.3f}"
        yield (f"{r['operation']:24}{r['data']:28}{r['peer']:26}{r['ours'] * 1e9:12.2f}"
               f"{r['theirs'] * 1e9:12.2f}{r['ratio']:8.2f}{size:>7}  {r['must']}").rstrip()
    yield ""
    yield "Geometric means of the ratios (above 1: we are faster)"
    for (operation, peer), ratios in grouped(all_rows).items():
        found = joined(mean_musts(operation, peer, mean(ratios)))
        yield f"{operation:24}{peer:26}{mean(ratios):8.2f}  {found}".rstrip()
    yield from ("", f"Not measured here: {unused}") if (unused := unmatched(all_rows)) else ()


def unmatched(all_rows):
    """Musts whose names are nobody's, as when a filter left them out or a benchmark
    was renamed."""
    def fits(must):
        return any(fnmatch.fnmatch(r["operation"], must[0]) and fnmatch.fnmatch(r["data"], must[1])
                   and (must[2] == r["peer"] or must in MUST_NS) for r in all_rows)
    return ", ".join("/".join(must[:2]) for must in MUST_RATIO + MUST_NS if not fits(must))


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
    all_rows = sorted(rows(*read(folder)), key=lambda row: row["operation"])
    failed = [f"table: failed: {row}" for row in failures(folder)]
    if not all_rows:
        sys.exit("\n".join(failed + ["table: no results"]))
    text = "\n".join(table(all_rows)) + "\n"
    (folder / "table.txt").write_text(text)
    print(text, end="")
    try:
        draw(all_rows, folder / "ratios.png")
    except ImportError:
        print("table: no picture without python3-matplotlib", file=sys.stderr)
    if failed:
        sys.exit("\n".join(failed))


main()
