#!/usr/bin/python3
"""Passes when the page of the interface lists the codes of all kinds, as the header has them.

usage: kinds.py INTERFACE HEADER
"""
import pathlib
import re
import sys

page, header = (pathlib.Path(path).read_text() for path in sys.argv[1:])
listed = {}
for line in re.findall(r"^\| \d.*\|$", page, re.M):
    cells = [cell.strip() for cell in line.strip("|").split("|")]
    listed.update(zip(map(int, cells[::2]), cells[1::2]))
faults = []
kinds = re.findall(r"Kind(\w+) = (\d+)", header)
for name, code in kinds:
    words = re.sub(r"(?<!^)([A-Z])", r" \1", name).lower()
    if words not in listed.get(int(code), ""):
        faults.append(f"{code}: {words}")
print(f"{len(kinds)} kinds, {len(listed)} codes listed; missing: {faults}")
sys.exit(bool(faults) or len(listed) != 18 or len(kinds) != 19)
