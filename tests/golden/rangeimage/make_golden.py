#!/usr/bin/env python3
"""Writes the golden range-image files next to this script.

They are put together here from the format alone, with nothing of the library: grids of 3 columns and
2 rows with the ends of each type's range, and colours of 1, 3 and 4 channels. The blocks are literal
runs, save in references.zrt. The tests hold the same values in C++ (support/RangeFile.h).
"""
import pathlib
import struct

WIDTH, HEIGHT = 3, 2
# resolution x, y, z, offset x, y, z
CALIBRATION = (0.5, 0.25, 0.01, -1.5, 2.5, 100.125)
VALUES = [
    ("B", [0, 1, 127, 128, 254, 255]),
    ("b", [-128, -1, 0, 1, 126, 127]),
    ("H", [0, 1, 255, 256, 65534, 65535]),
    ("h", [-32768, -1, 0, 1, 256, 32767]),
    ("i", [-2147483648, -1, 0, 1, 65536, 2147483647]),
    ("f", [0.0, -0.0, 1.5, -2.25, 1e-45, 3.4028234663852886e+38]),
    ("d", [0.0, -0.0, 1.5, -2.25, 5e-324, 1e300]),
]


def literals(block):
    runs = [block[i : i + 32] for i in range(0, len(block), 32)]
    return b"".join(bytes([len(run) - 1]) + run for run in runs)


def colors(channels):
    return bytes(10 * i + 3 for i in range(WIDTH * HEIGHT * channels))


def file(kind, width, height, channels, value_stream, color_stream):
    head = struct.pack("<4i6di", 1, kind, width, height, *CALIBRATION, channels)
    parts = [head]
    for stream in (value_stream, color_stream):
        parts += [struct.pack("<i", len(stream)), stream]
    return b"".join(parts)


def value_stream(kind):
    code, values = VALUES[kind]
    return literals(struct.pack("<6" + code, *values))


def main():
    folder = pathlib.Path(__file__).parent
    files = {f"type{kind}": file(kind, WIDTH, HEIGHT, 1, value_stream(kind), b"")
             for kind in range(7)}
    for channels, name in ((1, "grey"), (3, "bgr"), (4, "bgra")):
        files[f"type2_{name}"] = file(2, WIDTH, HEIGHT, channels, value_stream(2),
                                      literals(colors(channels)))
    # The image has three-channel colours, which were not wanted.
    files["type2_bgr_left_out"] = file(2, WIDTH, HEIGHT, 3, value_stream(2), b"")
    # 30 rows of 20 16-bit values, all 0x0102: two literals, then references two bytes back, four of
    # 264 bytes and one of 142.
    references = bytes([1, 2, 1]) + bytes([0xE0, 255, 1]) * 4 + bytes([0xE0, 142 - 9, 1])
    # As many grey pixels, all 7: one literal, references of 3 and 8 bytes in their short form, two
    # of 264 and one of 60.
    greys = (bytes([0, 7]) + bytes([1 << 5, 0]) + bytes([6 << 5, 0]) + bytes([0xE0, 255, 0]) * 2
             + bytes([0xE0, 60 - 9, 0]))
    files["references"] = file(2, 20, 30, 1, references, greys)
    for name, content in files.items():
        (folder / f"{name}.zrt").write_bytes(content)


main()
