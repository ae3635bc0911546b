#!/usr/bin/python3
"""Passes when a page of the guide shows a program's source, block after block, and its output.

usage: page.py PAGE SOURCE PROGRAM
"""
import difflib
import os
import pathlib
import re
import subprocess
import sys
import tempfile

page, source, program = map(pathlib.Path, sys.argv[1:])


def shown(kind):
    blocks = re.findall(rf"^```{kind}\n(.*?)^```$", page.read_text(), re.M | re.S)
    return [line for block in blocks for line in block.splitlines() if line]


def output():
    with tempfile.TemporaryDirectory() as folder:
        return subprocess.run([os.path.abspath(program)], cwd=folder, check=True,
                              capture_output=True, text=True).stdout.splitlines()


def differences(kind, expected):
    return list(difflib.unified_diff(shown(kind), expected, f"{page} ({kind})", kind, lineterm=""))


source_lines = [line for line in source.read_text().splitlines() if line]
found = differences("cpp", source_lines) + differences("text", output())
print("\n".join(found))
sys.exit(bool(found))
