#!/bin/sh
# Passes when the first program of a README compiles against the library and runs.
# usage: readme_program.sh README LIBRARY COMPILER [compiler options]
set -eu
readme=$1 library=$2
shift 2
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
sed -n '/^```cpp$/,/^```$/{/^```$/q;/^```/d;p}' "$readme" >"$folder/first.cpp"
cd "$folder"
"$@" first.cpp "$library" -Wl,-rpath,"$(dirname "$library")" -o first
./first
