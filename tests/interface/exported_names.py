#!/usr/bin/python3
"""Compares what the public headers declare and what the shared library exports with a written list,
so that the two can't drift from it together.

usage: exported_names.py LIBRARY LIST INCLUDE_DIR [compiler options]
"""
import pathlib
import subprocess
import sys

from clang import cindex
from clang.cindex import AccessSpecifier, CursorKind

FUNCTIONS = {CursorKind.FUNCTION_DECL, CursorKind.CXX_METHOD, CursorKind.CONSTRUCTOR,
             CursorKind.DESTRUCTOR}
CLASSES = {CursorKind.CLASS_DECL, CursorKind.STRUCT_DECL}


def demangled(mangled):
    text = subprocess.run(["c++filt"], input="\n".join(mangled), text=True, check=True,
                          capture_output=True).stdout
    return set(text.split("\n")) - {""}


def declared_functions(cursor, include_dir):
    """The mangled names of the interface's functions below a cursor."""
    for child in cursor.get_children():
        file = child.location.file
        if file is None or pathlib.Path(file.name).parent != include_dir:
            continue
        if child.kind in FUNCTIONS:
            if child.access_specifier in (AccessSpecifier.PUBLIC, AccessSpecifier.INVALID):
                yield child.mangled_name
        elif child.kind in CLASSES:
            yield from declared_functions(child, include_dir)


def parse(header, options):
    unit = cindex.Index.create().parse(str(header), ["-x", "c++", "-std=c++17", *options])
    errors = [str(d) for d in unit.diagnostics if d.severity >= cindex.Diagnostic.Error]
    if errors:
        sys.exit("\n".join(errors))
    return unit.cursor


def exported(library):
    lines = subprocess.run(["nm", "-D", "--defined-only", library], text=True, check=True,
                           capture_output=True).stdout.splitlines()
    return {line.split()[-1].split("@")[0] for line in lines}


def listed(path):
    return [line for line in path.read_text().splitlines() if not line.startswith("#")]


def main():
    library, names, include_dir = sys.argv[1], pathlib.Path(sys.argv[2]), pathlib.Path(sys.argv[3])
    options = sys.argv[4:]
    umbrella = include_dir / "Zyr3DData.h"
    declared = demangled(set(declared_functions(parse(umbrella, options), include_dir)))
    present = demangled(exported(library))
    written = listed(names)
    promised = set(written)
    faults = [f"listed, not declared: {name}" for name in sorted(promised - declared)]
    faults += [f"declared, not listed: {name}" for name in sorted(declared - promised)]
    faults += [f"listed, not exported: {name}" for name in sorted(promised - present)]
    faults += [f"exported, not listed: {name}" for name in sorted(present - promised)]
    if written != sorted(promised):
        faults.append(f"{names.name} is not sorted, or names a function twice")
    faults += [f"not in {umbrella.name}: {header.name}" for header in include_dir.glob("*.h")
               if header != umbrella and f'"{header.name}"' not in umbrella.read_text()]
    print("\n".join(faults))
    print(f"{len(declared)} functions declared, {len(present)} exported")
    return 1 if faults or not declared else 0


if __name__ == "__main__":
    sys.exit(main())
