#!/usr/bin/env bash
# Takes the tour and holds what it prints, and then its log, against what is expected.
# Usage: run.sh TOUR EXPECTED
set -euo pipefail

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
{
    "$1" tour.log
    echo "--- tour.log"
    # The line of a raise moves with the library's source.
    sed -E 's/tableimpl\([0-9]+\)/tableimpl(N)/' tour.log
} | diff -u "$2" -
