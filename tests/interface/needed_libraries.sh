#!/bin/sh
# Passes when the library has its soname and needs OpenCV's core and image codecs at the most,
# beside the compiler's and the C library's own.   usage: needed_libraries.sh LIBRARY
set -eu
readelf -d "$1" | grep -F 'Library soname: [libZyr3DData.so.3]'
others=$(readelf -d "$1" | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' |
    grep -vE '^(lib(opencv_core|opencv_imgcodecs|stdc\+\+|gcc_s|c|m)|ld-linux.*)\.so' || true)
[ -z "$others" ] || { echo "needs more: $others"; exit 1; }
