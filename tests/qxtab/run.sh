#!/bin/bash
# Runs the commands of a transcript and compares what they print with what the transcript says.
#
#     run.sh DATA TRANSCRIPT PROGRAM...
#
# In a transcript a line that begins with "  $ " is a command for bash, run in an empty directory where `qxtab` is
# PROGRAM (with what runs it and its first arguments, if any) and $DATA the directory of the sample files. The
# indented lines below it are what it must print, standard output and standard error together, and then "[N]" when it
# ends with an exit code N other than 0. All commands of a transcript share the directory. Lines that are not indented tell the reader what is shown. What differs is printed as
# a patch: piped to `patch TRANSCRIPT` it makes the transcript say what was printed.

set -u
DATA=$(realpath "$1")
transcript=$(realpath "$2")
shift 2
export DATA LC_ALL=C.UTF-8

work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
mkdir "$work/bin" "$work/files"
printf '#!/bin/sh\nexec %s "$@"\n' "$(printf '%q ' "$(realpath "$1")" "${@:2}")" >"$work/bin/qxtab"
chmod +x "$work/bin/qxtab"
PATH="$work/bin:$PATH"
cd "$work/files" || exit 1

commands=0
while IFS= read -r line || [ -n "$line" ]; do
    case $line in
    '  $ '*)
        commands=$((commands + 1))
        printf '%s\n' "$line"
        bash -o pipefail -c "${line#'  $ '}" </dev/null >"$work/output" 2>&1
        code=$?
        sed 's/^/  /' "$work/output"
        if [ $code -ne 0 ]; then
            printf '  [%d]\n' $code
        fi
        ;;
    '  '*) ;;
    *) printf '%s\n' "$line" ;;
    esac
done <"$transcript" >"$work/actual"

if [ $commands -eq 0 ]; then
    echo "$transcript holds no commands" >&2
    exit 1
fi
diff -u --label "$(basename "$transcript")" --label actual "$transcript" "$work/actual"
