#!/bin/sh
# Passes when the Debian packages in a folder hold the listed files, each in its package: those of
# manifest.txt and documents.txt, and a manual page for each of docs/man.
# usage: packages.sh FOLDER MULTIARCH_LIBDIR
set -eu
packages=$1 libdir=$2
here=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

{
    sed "s| LIBDIR/| $libdir/|; s| | ./usr/|" "$here/manifest.txt" "$here/documents.txt"
    find "$here/../../docs/man" -name '*.1' -printf 'zyr3d ./usr/share/man/man1/%f.gz\n'
} | LC_ALL=C sort >"$folder/expected"
for package in "$packages"/*.deb; do
    name=$(dpkg-deb -f "$package" Package)
    dpkg-deb --fsys-tarfile "$package" | tar t | sed -n "/[^/]\$/s|^|$name |p"
done | LC_ALL=C sort >"$folder/found"
diff "$folder/expected" "$folder/found"
