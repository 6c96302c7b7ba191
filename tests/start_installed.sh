#!/usr/bin/env bash
# Starts an installed program without a display and ends it as a desktop does at the end of a
# session. It has to get as far as its window, and to end in order.
#
#     tests/start_installed.sh PROGRAM
set -euo pipefail
program=$1
[[ -r /proc/self/status ]] || {
    printf '%s\n' "There is no /proc here, where it stands how far a program is." >&2
    exit 1
}
folder=$(mktemp -d "${TMPDIR:-/tmp}/corvane-start.XXXXXX")
pid=
cleanup() {
    [[ -z $pid ]] || kill -KILL "$pid" 2>/dev/null || true
    rm -rf "$folder"
}
trap cleanup EXIT

fail() {
    cat "$folder/log" >&2
    printf '%s\n' "$program: $*" >&2
    exit 1
}

mkdir -m 700 "$folder/runtime"
env QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 HOME="$folder" XDG_DATA_HOME="$folder/data" \
    XDG_RUNTIME_DIR="$folder/runtime" "$program" >"$folder/log" 2>&1 &
pid=$!

# Signals are handled from when the window is there on; SIGTERM is bit 14 of the mask.
handles_the_end() {
    local mask
    mask=$(sed -n 's/^SigCgt:[[:space:]]*//p' "/proc/$pid/status" 2>/dev/null) || return 1
    [[ -n $mask ]] && (((16#$mask >> 14) & 1))
}
tries=0
until handles_the_end; do
    kill -0 "$pid" 2>/dev/null || fail "it ended by itself."
    ((++tries <= 600)) || fail "it did not get as far as its window."
    sleep 0.1
done
kill -TERM "$pid"
code=0
wait "$pid" || code=$?
pid=
((code == 0)) || fail "it ended with the code $code."
