#!/usr/bin/env bash
# Sees to it that code is refused with the words that help, and that what they say compiles.
#
#     compile.sh CASES COMPILER [FLAG...]
set -euo pipefail

cases=$1
shift
compiler=("$@")

# Compiles statements that may use one object of each class.
compile() {
    "${compiler[@]}" -Werror=unused-result -fsyntax-only -xc++ - 2>&1 <<END
#include <qx/qx.h>
#include <iostream>
using namespace QX;
void use(Log& log, Status& status, Table& table, Cell& cell, double& number) {
    (void)log, (void)status, (void)table, (void)cell, (void)number;
    $1
}
END
}

count=0
failures=0
fail() {
    printf '%s\n' "$@"
    failures=$((failures + 1))
}

accepted=
while read -r key text; do
    case $key in
    refused:)
        refused=$text
        count=$((count + 1))
        if said=$(compile "$text"); then
            fail "compiles: $text"
        fi
        ;;
    says:)
        grep -qE -- "$text" <<<"$said" || fail "$refused" "$said" "does not say: $text"
        ;;
    instead:)
        accepted+="{ $text }"$'\n'
        ;;
    esac
done <"$cases"
said=$(compile "$accepted") || fail "does not compile:" "$said"
echo "$count cases, $failures failures"
((count > 0 && failures == 0))
