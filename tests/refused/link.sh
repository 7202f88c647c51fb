#!/usr/bin/env bash
# Sees to it that a program built with headers of another version, or with another kind of standard library,
# is not linked with the library.
#
#     link.sh WORK_DIRECTORY COMPILER [FLAG... LIBRARY...]
set -euo pipefail

work=$1
shift
mkdir -p "$work/other/qx"
cat >"$work/other/qx/version.h" <<'END'
#define QX_VERSION_MAJOR 0
#define QX_VERSION_MINOR 99
END
for header in library ptr tblpath; do
    printf '#include <qx/%s.h>\nint main() {}\n' "$header" >"$work/$header.cpp"
done

compiler=$1
shift
link() {
    "$compiler" -o "$work/program" "$@" 2>&1
}

# Each header alone is enough to be refused.
for source in "$work"/*.cpp; do
    link "$source" "$@"
    if said=$(link -I"$work/other" "$source" "$@"); then
        echo "$source is linked in spite of its version"
        exit 1
    fi
    grep -q "needs_qx_0_99_built_with_" <<<"$said"
done
if link -D_GLIBCXX_DEBUG "$work/library.cpp" "$@" >"$work/said"; then
    echo "is linked in spite of the debug containers"
    exit 1
fi
grep -qE "needs_qx_[0-9]+_[0-9]+_built_with_libstdcxx_debug_" "$work/said"
