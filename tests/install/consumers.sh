#!/bin/sh
# Builds tests/consumer against an installed copy of the library, or its sources, and runs it.
# usage: consumers.sh find_package|pkg-config|add_subdirectory BUILD_FOLDER
set -eu
way=$1 built=$2
here=$(cd "$(dirname "$0")" && pwd)
root=$(cd "$here/../.." && pwd)
consumer=$root/tests/consumer
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT

fail() {
    echo "$*" >&2
    exit 1
}

install_copy() {
    cmake --install "$built" --prefix "$folder/installed" >/dev/null
}

with_cmake() {
    cmake -G Ninja -S "$consumer" -B "$folder/build" -DCMAKE_EXPORT_COMPILE_COMMANDS=ON "$@" \
        >"$folder/log" 2>&1 || { cat "$folder/log"; exit 1; }
    cmake --build "$folder/build" --target consumer --parallel 2 >"$folder/log" 2>&1 ||
        { cat "$folder/log"; exit 1; }
}

# The command that compiled consumer.cpp has nothing of how the library itself is built.
check_flags() {
    command=$(grep '"command".*consumer\.cpp' "$folder/build/compile_commands.json")
    for leak in -W -ffp-contract -D "$@"; do
        case $command in
            *" $leak"*) fail "leaks $leak: $command" ;;
        esac
    done
}

case $way in
    find_package)
        install_copy
        with_cmake -DCMAKE_PREFIX_PATH="$folder/installed"
        check_flags "-I$root" "-isystem $root"
        program=$folder/build/consumer
        ;;
    pkg-config)
        install_copy
        libdir=$(dirname "$(find "$folder/installed" -name libZyr3DData.so)")
        export PKG_CONFIG_PATH="$libdir/pkgconfig" LD_LIBRARY_PATH="$libdir"
        pkg-config --exact-version=3.0.0 Zyr3DData
        program=$folder/consumer
        c++ -std=c++17 "$consumer/consumer.cpp" -o "$program" $(pkg-config --cflags --libs Zyr3DData)
        ;;
    add_subdirectory)
        with_cmake -DZYR_SOURCE="$root" -DCMAKE_CXX_FLAGS=-O0
        check_flags
        program=$folder/build/consumer
        ;;
esac
[ "$("$program" "$folder/one.zpt")" = "3 6" ] || fail "the consumer printed something else"
