#!/usr/bin/python3
"""Lays the first inputs of the fuzz targets: the golden files and small ones made here.

usage: fuzz/make_seeds.py FOLDER      (makes FOLDER/TARGET/...)
"""
import pathlib
import struct
import sys

root = pathlib.Path(__file__).resolve().parent.parent
golden = root / "tests" / "golden"
out = pathlib.Path(sys.argv[1])


def seed(target, name, data):
    folder = out / target
    folder.mkdir(parents=True, exist_ok=True)
    (folder / name).write_bytes(data)


def literals(data):
    runs = [data[i:i + 32] for i in range(0, len(data), 32)]
    return b"".join(bytes([len(run) - 1]) + run for run in runs)


def cloud(fields, sizes, counts, points, kind, body, channels=3):
    n = len(fields.split())
    text = (f"VERSION 0.1\nFIELDS {fields}\nSIZE {sizes}\nTYPE {' '.join('F' * n)}\nCOUNT {counts}\n"
            f"WIDTH {points}\nHEIGHT 1\nVIEWPOINT 0 0 0 1 0 0 0\nPOINTS {points}\nDATA {kind}\n")
    stream = literals(body)
    if kind == "binary_compressed":
        body = struct.pack("<III", channels, len(stream), len(body)) + stream
    return text.encode() + body


def mesh(lines, kind, body):
    stream = literals(body)
    return ("\n".join(lines) + f"\nDATA {kind}\n").encode() + \
        struct.pack("<IIII", 3, 4, len(stream), len(body)) + stream


for target, folder, suffix in [("cloud", "pointcloud", "zpt"), ("mesh", "mesh", "ztmt"),
                               ("range", "rangeimage", "zrt")]:
    for path in sorted((golden / folder).glob("*." + suffix)):
        seed(target, path.name, path.read_bytes())

seed("cloud", "floats", cloud("x y z", "4 4 4", "1 1 1", 2, "binary_compressed", bytes(range(24))))
seed("cloud", "unknown", cloud("a x y z b", "2 4 8 4 3", "3 2 1 1 5", 2, "binary_compressed",
                               bytes(2 * (6 + 8 + 8 + 4 + 15))))
seed("cloud", "binary", cloud("x y z rgb", "4 4 4 4", "1 1 1 1", 2, "binary", bytes(range(32))))
seed("cloud", "binary_doubles", cloud("x y z nx ny nz rgb", "8 8 8 8 8 8 4", "1 1 1 1 1 1 1", 2,
                                      "binary", bytes(range(104))))
seed("cloud", "binary_wide", cloud("x y z w", "8 8 8 4", "1 1 1 20", 1, "binary", bytes(104)))
seed("cloud", "ascii", cloud("x y z", "8 8 8", "1 1 1", 4, "ascii", b"1 2 3\n" * 4))
seed("mesh", "bare", mesh(["POINTS 2", "FACES 1"], "binary", bytes(60)))
seed("mesh", "points_alone", mesh(["POINTS 2"], "binary_compressed", bytes(48)))
seed("mesh", "no_x", mesh(["FIELDS fa fb fc", "POINTS 2", "FACES 1"], "binary", bytes(12)))
seed("mesh", "unknown", mesh(["FIELDS x y z a fa fb fc b", "SIZE 4 4 8 2 4 4 4 1",
                              "COUNT 1 1 1 2 1 1 2 3", "POINTS 2", "FACES 1"], "binary", bytes(59)))
seed("mesh", "ascii", b"POINTS 3\nFACES 1\nDATA ascii\n0 0 0\n")

heads = {
    "written": "FIELDS x y z\nSIZE 8 8 8\nTYPE F F F\nCOUNT 1 1 1\nWIDTH 2\nHEIGHT 1\n"
               "VIEWPOINT 0 0 0 1 0 0 0\nPOINTS 2",
    "word32": "FIELDS x y z " + "a" * 32,
    "word33": "FIELDS x y z " + "a" * 33,
    "words61": "VERSION" + " 1" * 60,
    "words62": "VERSION" + " 1" * 61,
    "few_sizes": "FIELDS x y z\nSIZE 8 8",
    "comment": "#" + "c" * 200 + "\n #\n\r#\nPOINTS 1\r\nFACES 0",
    "fields14": "FIELDS x y z " + " ".join("abcdefghijk") + "\nSIZE" + " 4" * 14,
    "fields15": "FIELDS x y z " + " ".join("abcdefghijkl") + "\nSIZE" + " 4" * 15,
    "numbers": "POINTS 2147483648\nFACES -1\nWIDTH 0x10\nHEIGHT  7\nPOINTS 99999999999999999999",
}
for name, text in heads.items():
    seed("header", name, text.encode())

streams = {
    "literals": literals(bytes(range(64))),
    "references": bytes([2, 0x61, 0x62, 0x63, 0xE0, 0, 2, 0, 0x58]),
    "zeros": bytes([0, 0, 0xE0, 255, 0, 0xE0, 255, 0, 0xE0, 255, 0, 0xE0, 198, 0]),
    "before": bytes([0, 1, 0x20, 1]),
    "cut": bytes([5, 1, 2]),
    "far": literals(bytes(i * 7 % 256 for i in range(8192))) + bytes([0xFF, 9, 0xFF, 0x3F, 0xFF]),
}
for name, stream in streams.items():
    for room in (100, 1000, 9000, 65535):
        seed("lzf_decode", f"{name}{room}", struct.pack("<H", room) + stream)

for name, times, change, data in [("zeros", 0, 0, bytes(300)), ("text", 9, 0, b"abcabcabcX"),
                                  ("drift", 200, 1, bytes(range(100))),
                                  ("far", 255, 0, bytes(i * i % 251 for i in range(8190))),
                                  ("doubles", 3, 3, struct.pack("<40d", *[0.1 * i for i in range(40)]))]:
    seed("lzf_round_trip", name, bytes([times, change]) + data)

counts = [0, 3, 6, 6, 7, 6, 9, 4, 8, 9, 12, 8, 9, 8, 11, 9, 9]
nan, inf = float("nan"), float("inf")
for kind, count in enumerate(counts):
    seed("parameters", f"kind{kind}", struct.pack(f"<b{count}d", kind, *range(1, count + 1)))
    odd = [nan, inf, -inf, 3.4028234663852886e+38, -0.0, 4294967297.0, 1e300, 5e-324] * 2
    seed("parameters", f"odd{kind}", struct.pack(f"<b{count}d", kind, *odd[:count]))
seed("parameters", "torus", struct.pack("<b11d", 14, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 1))
for name, doubles in [("lines", [2, 2, 1, 2, 3, 4, 5, 6, 0, 1]), ("none", [0, 0]),
                      ("negative", [-1, 3]), ("huge", [1431655765, 4294967297.0]), ("nan", [nan, nan])]:
    seed("parameters", "irregular_" + name, struct.pack(f"<b{len(doubles)}d", 17, *doubles))
