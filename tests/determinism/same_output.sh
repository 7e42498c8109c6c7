#!/usr/bin/env bash
# Runs the program that prints results by their bits in several surroundings and compares its output byte for
# byte: same_output.sh PROGRAM CATALOGUE
# A second locale groups digits by three and two, and what freed memory holds, the number of threads and the
# folder change too.
set -euo pipefail

program=$(realpath "$1")
catalogue=$(realpath "$2")
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT

LC_ALL=C "$program" "$catalogue" >"$work/expected" 2>"$work/errors" || {
    echo "determinism: $program failed: $(head -n 1 "$work/errors")"
    exit 1
}
tail -n 1 "$work/expected"
points=$(grep -c -v -e '^block ' -e '^end: ' "$work/expected")
if [ "$points" -lt 200000 ]; then
    echo "determinism: only $points lines; 200000 are promised"
    exit 1
fi

failed=0
compare() {
    local name=$1
    shift
    if ! (cd "$work" && env "$@" >"$work/found" 2>"$work/errors"); then
        echo "determinism: $name: the program failed: $(head -n 1 "$work/errors")"
        failed=1
    elif ! cmp -s "$work/expected" "$work/found"; then
        echo "determinism: $name: the output differs: $(cmp "$work/expected" "$work/found" 2>&1 || true)"
        failed=1
    else
        echo "same: $name"
    fi
}
compare 'a second time, with other contents of fresh and of freed memory' LC_ALL=C MALLOC_PERTURB_=165 \
    "$program" "$catalogue"
compare 'a decimal comma' LC_ALL=de_DE.UTF-8 "$program" "$catalogue"
compare 'digits grouped by three and two' LC_ALL=en_IN.UTF-8 "$program" "$catalogue"
compare 'eight threads' LC_ALL=C MALLOC_PERTURB_=90 "$program" --threads 8 "$catalogue"
exit $failed
