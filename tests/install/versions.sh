#!/bin/sh
# Passes when find_package takes the installed library as version 3 and refuses 2 and 4.
# usage: versions.sh BUILD_FOLDER
set -eu
built=$1
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cmake --install "$built" --prefix "$folder/installed" >/dev/null
cat >"$folder/CMakeLists.txt" <<'END'
cmake_minimum_required(VERSION 3.25)
project(versions LANGUAGES CXX)
foreach(version 2 2.9 3 3.0.0 3.0.1 3.1 4)
    find_package(Zyr3DData ${version} QUIET)
    message(STATUS "wanted ${version}: ${Zyr3DData_FOUND}")
endforeach()
END
cmake -G Ninja -S "$folder" -B "$folder/build" -DCMAKE_PREFIX_PATH="$folder/installed" >"$folder/log" 2>&1 ||
    { cat "$folder/log"; exit 1; }
sed -n 's/^-- wanted //p' "$folder/log" >"$folder/found"
diff - "$folder/found" <<'END'
2: 0
2.9: 0
3: 1
3.0.0: 1
3.0.1: 0
3.1: 0
4: 0
END
