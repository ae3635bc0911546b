#!/usr/bin/python3
"""Passes when every source of the library is compiled with -ffp-contract=off, and nothing undoes it:
results are promised to the bit, also where the processor could multiply and add in one step.

usage: uncontracted.py COMPILE_COMMANDS SOURCE_DIR
"""
import json
import pathlib
import shlex
import sys

LOOSE = {"-Ofast", "-ffast-math", "-funsafe-math-optimizations", "-fassociative-math"}


def is_exact(options):
    contracts = [option for option in options if option.startswith("-ffp-contract=")]
    return contracts[-1:] == ["-ffp-contract=off"] and not LOOSE & set(options)


def main():
    source_dir = pathlib.Path(sys.argv[2])
    entries = json.loads(pathlib.Path(sys.argv[1]).read_text())
    ours = {entry["file"]: shlex.split(entry["command"]) for entry in entries
            if source_dir in pathlib.Path(entry["file"]).parents}
    sources = {str(path) for path in source_dir.rglob("*.cpp")}
    faults = sorted(sources - set(ours))
    faults += sorted(file for file, options in ours.items() if not is_exact(options))
    print("\n".join(faults))
    print(f"{len(ours)} sources")
    return 1 if faults or not ours else 0


if __name__ == "__main__":
    sys.exit(main())
