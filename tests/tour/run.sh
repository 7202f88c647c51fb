#!/usr/bin/env bash
# Takes the tour and holds what it prints, and then its log, against what is expected, whatever the line ends.
# Usage: run.sh EXPECTED TOUR...
set -euo pipefail

expected=$1
shift
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
cd "$work"
{
    "$@" tour.log
    echo "--- tour.log"
    # The line of a raise moves with the library's source.
    sed -E 's/tableimpl\([0-9]+\)/tableimpl(N)/' tour.log
} | sed 's/\r$//' | diff -u "$expected" -
