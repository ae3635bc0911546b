#!/bin/sh
# Passes when the first program of a README compiles against the library, runs on a cloud, and says
# so when there is none.
# usage: readme_program.sh README CLOUD LIBRARY COMPILER [compiler options]
set -eu
readme=$1 cloud=$2 library=$3
shift 3
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
sed -n '/^```cpp$/,/^```$/{/^```$/q;/^```/d;p}' "$readme" >"$folder/first.cpp"
cd "$folder"
"$@" first.cpp "$library" -Wl,-rpath,"$(dirname "$library")" -o first
if ./first >said; then exit 1; fi
grep -q './run' said
mkdir zyr3d-demo
cp "$cloud" zyr3d-demo/demo.zpt
./first
[ -s low.zpt ]
