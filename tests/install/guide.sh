#!/bin/sh
# Walks through docs/guide/README.md from the installation of the sources on, by the page's own
# lines: only the places are others.   usage: guide.sh BUILD_FOLDER
set -eu
built=$1
root=$(cd "$(dirname "$0")/../.." && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
installed=$folder/installed
cmake --install "$built" --prefix "$installed" >/dev/null

# The n-th block of a kind on the page.
block() {
    awk -v kind="$1" -v n="$2" '
        $0 == "```" kind { inside = ++count == n; next }
        /^```/ { inside = 0 }
        inside' "$root/docs/guide/README.md"
}
grep -q '`/usr/local/share/doc/libzyr3ddata-dev/examples`' "$root/docs/guide/README.md"
{
    echo 'set -eux'
    for n in 3 4 5 6; do block sh $n; done | sed "s|/usr/share/|$installed/share/|"
    echo "cat >CMakeLists.txt <<'END'" && block cmake 1 && echo END
    block sh 7
} >"$folder/walk"

# The program finds the library beside it, without being told.
[ "$("$installed/bin/zyr3d" --version)" = "zyr3d 3.0.0" ]

libdir=$(dirname "$(find "$installed" -name libZyr3DData.so)")
HOME=$folder PATH=$installed/bin:$PATH PKG_CONFIG_PATH=$libdir/pkgconfig LD_LIBRARY_PATH=$libdir \
    CMAKE_PREFIX_PATH=$installed CMAKE_GENERATOR=Ninja CMAKE_BUILD_PARALLEL_LEVEL=2 \
    sh "$folder/walk" >"$folder/out" 2>"$folder/log" || { cat "$folder/out" "$folder/log"; exit 1; }
grep -q '^part.zpt: valid: point cloud, 4 points' "$folder/out"
grep -q '^part.zpt and part.pcd: equal$' "$folder/out"
[ "$(grep -c '^4 points, 3 valid$' "$folder/out")" = 2 ]  # by itself, and as a project
[ -s "$folder/first/examples/part.png" ]
