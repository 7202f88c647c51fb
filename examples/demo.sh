#!/usr/bin/env bash
# Shows qxtab, which is found in PATH, at work on the two snapshots of examples/data. README.md holds the output.
set -euo pipefail
cd "$(dirname "${BASH_SOURCE[0]}")/.."

# Prints a command line and runs it.
show() {
    echo "\$ $1"
    bash -o pipefail -c "$1"
}

show 'qxtab show examples/data/moons-2013.csv'
echo
show "qxtab filter 'moons > 1 and kind = \"planet\"' then top -n 2 --by radius_km --as csv examples/data/moons-2023.csv"
echo
show 'qxtab group --by kind --count --sum moons --max radius_km examples/data/moons-2023.csv'
echo
show 'qxtab compare --by body examples/data/moons-2013.csv examples/data/moons-2023.csv' ||
    [ $? -eq 1 ] # something differs
