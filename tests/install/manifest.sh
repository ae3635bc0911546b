#!/bin/sh
# Passes when `cmake --install` puts the listed files in place, and a manual page for each of
# docs/man.   usage: manifest.sh BUILD_FOLDER MULTIARCH_LIBDIR
set -eu
built=$1 libdir=$2
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

{
    sed "s|^[^ ]* ||; s|^LIBDIR/|$libdir/|" "$here/manifest.txt"
    find "$here/../../docs/man" -name '*.1' -printf 'share/man/man1/%f.gz\n' 2>/dev/null || true
} | LC_ALL=C sort >"$folder/expected"
cmake --install "$built" --prefix "$folder/installed" >/dev/null
(cd "$folder/installed" && find . ! -type d -printf '%P\n') | LC_ALL=C sort >"$folder/found"
diff "$folder/expected" "$folder/found"
