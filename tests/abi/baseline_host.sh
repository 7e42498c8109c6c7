#!/usr/bin/env bash
# Hosts that were compiled against the headers of the baseline's commit run with the present libraries, and
# write the same bytes as those compiled today: baseline_host.sh CMAKE COMPILER LIBRARY HOST_KIT_LIBRARY
set -euo pipefail

cmake=$1
compiler=$2
libraries=("$3" "$4" -pthread "-Wl,-rpath,${3%/*}:${4%/*}")
source=$(cd "$(dirname "$0")/../.." && pwd)
file=$source/tests/abi/baseline-commit
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

fail() {
    printf 'baseline_host: %s\n' "$*" >&2
    exit 1
}

commit=$(tr -d '[:space:]' <"$file")
[[ $commit =~ ^[0-9a-f]{40}$ ]] || fail "\"$commit\" in $file isn't the full name of a commit"
if ! git -C "$source" cat-file -e "$commit^{commit}" 2>"$work/git.log"; then
    printf 'baseline_host: %s\n' "the history doesn't reach the baseline's commit $commit ($(head -1 "$work/git.log"))
in a shallow clone run: git fetch --unshallow
without a clone get one: the headers of that commit are what this check compiles" >&2
    exit 77 # the tests of a source tree without its history skip this; the long check fails
fi
mkdir "$work/then" "$work/hosts"
git -C "$source" archive "$commit" | tar -x -C "$work/then"

# headers TREE BUILD: configuring a tree lays out its headers as hosts include them
headers() {
    "$cmake" -S "$1" -B "$2" "-DCMAKE_CXX_COMPILER=$compiler" -DVELLARI_TESTS=OFF -DVELLARI_BENCH=OFF \
        -DVELLARI_LTO=OFF -DVELLARI_GRIDS=OFF >"$work/cmake.log" 2>&1 ||
        fail "$1 ($commit) can't be configured: $(cat "$work/cmake.log")"
}

# host NAME TREE BUILD EXAMPLE: an example of the baseline, with the headers of TREE
host() {
    "$compiler" -std=c++20 -O1 -I "$3/include" -I "$2" "$work/then/examples/$4/main.cpp" -o "$work/hosts/$1" \
        "${libraries[@]}" 2>"$work/compiler.log" ||
        fail "examples/$4 of $commit doesn't build with the headers of $2: $(head -20 "$work/compiler.log")"
}

headers "$work/then" "$work/headers-then"
headers "$source" "$work/headers-now"
for example in embedding host; do
    host "$example-then" "$work/then" "$work/headers-then" "$example"
    host "$example-now" "$source" "$work/headers-now" "$example"
done

# Every name is looked for at the start, also those that these runs don't reach.
export LD_BIND_NOW=1
catalogue=$work/then/catalog
for age in "then" "now"; do
    code=0
    "$work/hosts/embedding-$age" "$catalogue" >"$work/embedding-$age.txt" 2>&1 || code=$?
    [ $code -eq 0 ] || fail "the host embedding-$age ended with $code: $(tail -5 "$work/embedding-$age.txt")"
    for description in "$catalogue"/*.txt; do
        echo "${description##*/}"
        code=0
        printf '%s\n' '55.75 37.62 150' '0.5 0.25 10' '-500000 4500000 20' '3e6 2e6 5e6' |
            "$work/hosts/host-$age" "$description" "$catalogue/wgs-84.txt" 2>&1 || code=$?
        [ $code -eq 0 ] || fail "the host host-$age ended with $code for ${description##*/}"
    done >"$work/host-$age.txt"
done

for example in embedding host; do
    cmp -s "$work/$example-then.txt" "$work/$example-now.txt" ||
        fail "examples/$example with the headers of $commit does something else than with those of today:
$(diff "$work/$example-then.txt" "$work/$example-now.txt" | head -40)"
done
moved=$(grep -Ec '^-?[0-9]+\.[0-9]{9} ' "$work/host-then.txt" || true)
systems=$(find "$catalogue" -name '*.txt' | wc -l)
[ "$moved" -ge "$systems" ] || fail "only $moved points of $systems systems were moved: too few to compare"
grep -q '^numbers: ' "$work/embedding-then.txt" || fail 'examples/embedding moved nothing'

echo "baseline_host: hosts of $commit move $moved points between $systems systems as those of today do"
