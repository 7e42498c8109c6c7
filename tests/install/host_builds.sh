#!/usr/bin/env bash
# A host outside of the repository builds and runs against an installed tree, by CMake and by pkg-config, also after
# the tree has been moved: host_builds.sh CMAKE SOURCE_FOLDER BUILD_FOLDER COMPILER
set -euo pipefail

cmake=$1
source=$2
build=$3
compiler=$4
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    echo "host_builds: $*" >&2
    exit 1
}

"$cmake" --install "$build" --prefix "$work/first" >"$work/install.log" || fail "$(cat "$work/install.log")"
mv "$work/first" "$work/tree"
# The host must find all that it needs in the tree: nothing of the repository but its own two files.
cp -r "$source/examples/host" "$work/host"

"$cmake" -S "$work/host" -B "$work/by-cmake" -DCMAKE_BUILD_TYPE=Release "-DCMAKE_CXX_COMPILER=$compiler" \
    "-DCMAKE_PREFIX_PATH=$work/tree" >"$work/cmake.log" 2>&1 || fail "$(cat "$work/cmake.log")"
"$cmake" --build "$work/by-cmake" >"$work/build.log" 2>&1 || fail "$(cat "$work/build.log")"

pc=$(find "$work/tree" -name vellari.pc)
[ -n "$pc" ] || fail "the installed tree has no vellari.pc"
export PKG_CONFIG_PATH=${pc%/*}
libraries=$(pkg-config --variable=libdir vellari)
# shellcheck disable=SC2046 # the flags are words
"$compiler" -O2 -Wall -Wextra -Wpedantic -Werror $(pkg-config --cflags vellari) "$work/host/main.cpp" \
    -o "$work/by-pkg-config" $(pkg-config --libs vellari) "-Wl,-rpath,$libraries"

include=$work/tree/include/Vellari
grids_header=Vellari/hostkit/grids/GeoidGrid.h
grids_pc=${pc%/*}/vellari-grids.pc
if [ -f "$work/tree/include/$grids_header" ]; then
    mkdir "$work/grids"
    echo "#include <$grids_header>"'
#include <cstdio>
#include <exception>
int main(int, char** arguments) {
    try {
        VellariHostKit::TGeoidGrid const grid(arguments[1]);
        std::puts("read");
    } catch (std::exception const& failure) {
        std::puts(failure.what());
    }
}' >"$work/grids/main.cpp"
    echo 'cmake_minimum_required(VERSION 3.25)
project(Grids LANGUAGES CXX)
find_package(Vellari REQUIRED COMPONENTS Grids)
add_executable(grids main.cpp)
target_link_libraries(grids PRIVATE Vellari::Grids)' >"$work/grids/CMakeLists.txt"
    "$cmake" -S "$work/grids" -B "$work/grids/build" "-DCMAKE_CXX_COMPILER=$compiler" \
        "-DCMAKE_PREFIX_PATH=$work/tree" >"$work/grids.log" 2>&1 || fail "$(cat "$work/grids.log")"
    "$cmake" --build "$work/grids/build" >"$work/grids.log" 2>&1 || fail "$(cat "$work/grids.log")"
    # shellcheck disable=SC2046 # the flags are words
    "$compiler" $(pkg-config --cflags vellari-grids) "$work/grids/main.cpp" -o "$work/grids/by-pkg-config" \
        $(pkg-config --libs vellari-grids) "-Wl,-rpath,$libraries"
    for host in "$work/grids/build/grids" "$work/grids/by-pkg-config"; do
        told=$("$host" "$work/missing.gtx")
        [ "$told" = "$work/missing.gtx: can't be read: No such file or directory" ] || fail "\"$told\" of $host"
    done
elif [ -f "$grids_pc" ]; then
    fail "there is $grids_pc without its header"
fi

# Every installed header is one that a host reaches by the umbrella headers and that of the grids, and the other way
# round.
installed=$(cd "$include" && find . -name '*.h' | sort)
echo '#include <Vellari/Vellari.h>
#include <Vellari/hostkit/HostKit.h>
#if __has_include(<'$grids_header'>)
#include <'$grids_header'>
#endif' >"$work/umbrellas.cpp"
reached=$("$compiler" -std=c++20 -MM "-I$work/tree/include" "-I$include" "$work/umbrellas.cpp" | tr -s ' \\\n' '\n' |
    sed -n "s|^$include/|./|p" | sort -u)
[ "$installed" = "$reached" ] || fail "installed headers and those that hosts reach differ:
$(diff <(echo "$installed") <(echo "$reached"))"

descriptions=$work/tree/share/Vellari/catalog
arguments=("$descriptions/pulkovo-1942.txt" "$descriptions/wgs-84.txt")
by_cmake=$(echo 55.75 37.62 150 | "$work/by-cmake/host" "${arguments[@]}")
by_pkg_config=$(echo 55.75 37.62 150 | "$work/by-pkg-config" "${arguments[@]}")
echo "CMake: $by_cmake; pkg-config: $by_pkg_config"

[ "$by_cmake" = "$by_pkg_config" ] || fail "the two hosts differ"
number='-?[0-9]+\.[0-9]{9}'
[[ $by_cmake =~ ^$number\ $number\ $number$ ]] || fail "\"$by_cmake\" isn't three finite numbers"
# The datums lie some hundred metres apart: the point moves, but by less than a hundredth of a degree.
read -r latitude longitude _ <<<"$by_cmake"
[[ $latitude == 55.7[45]* && $longitude == 37.61[0-9]* ]] || fail "\"$by_cmake\" isn't near 55.75 37.62"

tool=$("$work/tree/bin/vellari" --version)
echo "installed tool: $tool"
