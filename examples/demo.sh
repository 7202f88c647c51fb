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
show 'qxtab show examples/data/moons-2023.csv'
echo
show 'qxtab sort --by moons --descending --head 3 examples/data/moons-2023.csv'
echo
show "qxtab filter --where 'kind=dwarf planet' --as csv examples/data/moons-2023.csv"
echo
show "qxtab filter --where moons=1 examples/data/moons-2023.csv --as csv | qxtab select --columns body,largest_moon=moon -"
echo
show 'qxtab compare examples/data/moons-2013.csv examples/data/moons-2023.csv' ||
    [ $? -eq 1 ] # something differs
echo
show "qxtab get examples/data/moons-2023.csv '/moons[4]'"
