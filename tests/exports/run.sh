#!/usr/bin/env bash
# Holds what a shared library exports against what it is meant to.
#
#     run.sh CXXFILT NAMES LIBRARY PLUGIN NM LIST...
#
# NAMES are the classes and functions of namespace QX, joined by |; LIST prints the exports of a library. PLUGIN
# is a shared library that derives from some of the classes: their virtual tables must be the library's alone, and
# so must their type information, except that Windows compilers give a copy to each module that refers to it.
set -euo pipefail

cxxfilt=$1 names=$2 library=$3 plugin=$4 nm=$5
shift 5
tables='(vtable|typeinfo|typeinfo name) for '
own_tables=$tables
if [[ $plugin == *.dll ]]; then
    own_tables='vtable for '
fi

# The table of names that objdump prints of a DLL, or nm's third column.
exported() {
    sed -nE 's/^\s+\[ *[0-9]+\]( \+base\[ *[0-9]+\])?( +[0-9a-f]+)? +(\w+)$/\3/p; s/^[0-9a-f]+ [A-Za-z] (\w+)$/\1/p'
}

symbols=$("$@" "$library" | exported | "$cxxfilt" | sort -u)
allowed="^($tables)?QX::($names)(\[abi:cxx11])?(\(|::|$)"
if ! grep -qE "^QX::(${names%%|*})(\(|::)" <<<"$symbols"; then
    echo "$library exports nothing of QX::${names%%|*}: is the list not read as it should be?"
    exit 1
fi
if grep -vE "$allowed" <<<"$symbols"; then
    echo "$library exports these names, which are not for others"
    exit 1
fi
if "$nm" --defined-only "$plugin" | "$cxxfilt" | grep -E " [A-Z] ${own_tables}QX::($names)$"; then
    echo "$plugin has these tables, which belong to $library"
    exit 1
fi
echo "$(wc -l <<<"$symbols") names"
