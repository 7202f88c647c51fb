#!/usr/bin/env bash
# Runs a program in GDB and holds the values that GDB shows against what is expected.
# Usage: run.sh GDB PROGRAM DIRECTORY-OF-THE-LIBRARY
set -euo pipefail
export LC_ALL=C.UTF-8
here=$(cd "$(dirname "$0")" && pwd)

fail() {
    echo "GDB said:"
    echo "$shown"
    exit 1
}

shown=$("$1" -nx -batch -iex "add-auto-load-safe-path $3" -x "$here/commands.gdb" "$2" 2>&1) || fail
# The classes of the library's own sources are unknown to GDB where the library is built without debug information.
sed -n '/^text = /,$p' <<<"$shown" | grep -v -e '^\[Inferior' -e '^warning: RTTI symbol not found' | diff -u "$here/expected.txt" - || fail
