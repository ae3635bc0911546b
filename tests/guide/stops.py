#!/usr/bin/python3
"""Passes when the pitfalls state the expression of each assertion that the sources raise.

usage: stops.py PITFALLS SOURCE...
"""
import pathlib
import re
import sys

page = pathlib.Path(sys.argv[1]).read_text().replace("\\|", "|")
stops = {expression
         for source in sys.argv[2:]
         for expression in re.findall(r'(?:stopUnlessBad|assertionFailure)\([^;"]*"([^"]+[<=][^"]*)"',
                                      pathlib.Path(source).read_text())}
missing = {expression for expression in stops if f"`{expression}`" not in page}
print(f"{len(stops)} found; missing: {sorted(missing)}")
sys.exit(bool(missing) or len(stops) != 5)
