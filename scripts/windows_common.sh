# shellcheck shell=bash
# Shared by the scripts that build for Windows.

# The folder that all of them keep what they build in.
# shellcheck disable=SC2034
cache=${CORVANE_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/corvane-windows}

# die_with LOG MESSAGE: the end of a log, and the end.
die_with() {
    tail -n 30 "$1" >&2
    die "$2"
}

# fetch_sources FOLDER [--download-only] PACKAGE=VERSION...: gets source packages into a folder, from
# where the system has its packages. The lists that this takes are in that folder, too: the system's
# own are left alone.
fetch_sources() {
    local folder=$1 file
    shift
    mkdir -p "$folder/sources.list.d" "$folder/lists/partial"
    : >"$folder/sources.list"
    for file in /etc/apt/sources.list.d/*.sources; do
        [[ ! -f $file ]] ||
            sed 's/^Types:.*/Types: deb-src/' "$file" >"$folder/sources.list.d/$(basename "$file")"
    done
    for file in /etc/apt/sources.list /etc/apt/sources.list.d/*.list; do
        [[ ! -f $file ]] || sed -nE 's/^deb(-src)?[[:blank:]]/deb-src /p' "$file"
    done | sort -u >"$folder/sources.list.d/lines.list"
    local apt=(apt-get -q -o Dir::Etc::sourcelist="$folder/sources.list"
        -o Dir::Etc::sourceparts="$folder/sources.list.d" -o Dir::State::lists="$folder/lists"
        -o APT::Sandbox::User=root)
    "${apt[@]}" update >"$folder/log" 2>&1 || die_with "$folder/log" "apt-get update failed."
    (cd "$folder" && "${apt[@]}" source "$@") >"$folder/log" 2>&1 ||
        die_with "$folder/log" "These sources were not to be had: $*"
}

# prepare_wine NAME: makes a folder of that name for Wine, once, and says in `wine` what starts
# programs in it, without windows of its own and without a word of what it lacks; and in `wineserver`
# what they share.
prepare_wine() {
    wine=$(command -v wine64) || wine=/usr/lib/wine/wine64
    # shellcheck disable=SC2034
    wineserver=$(command -v wineserver) || wineserver=/usr/lib/wine/wineserver64
    [[ -x $wine ]] || die "There is no wine64 here."
    export WINEPREFIX=$cache/$1 WINEDEBUG=-all WINEDLLOVERRIDES="mscoree,mshtml=" WINEARCH=win64
    [[ -d $WINEPREFIX ]] || section "Making a folder for Wine, once"
    "$wine" wineboot --init >/dev/null 2>&1 || die "Wine does not start."
}

passed=0
failed=0

# run_tests LOG COMMAND...: runs a program of tests and adds its tests to `passed` and `failed`.
run_tests() {
    local log=$1 count wrong=0
    shift
    "$@" --gtest_brief=1 2>&1 </dev/null | tr -d '\r' | tee "$log" || wrong=1
    count=$(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests\?\..*/\1/p' "$log")
    # Where none of them failed, but the program did, that counts as one.
    if ((wrong > 0)); then
        wrong=$(grep -c '^\[  FAILED  \] .* ms)$' "$log" || true)
        ((wrong > 0)) || wrong=1
    fi
    passed=$((passed + ${count:-0}))
    failed=$((failed + wrong))
}

# sum_up WHAT: says how many tests passed; fails where one did not, or none was run.
sum_up() {
    printf '\n'
    say "$1: $passed tests passed, $failed failed"
    ((passed > 0 && failed == 0))
}

# tests_in FILE...: the tests that they hold, as SUITE.NAME, sorted.
tests_in() {
    sed -nE 's/^TEST(_[FP])?\((\w+), (\w+)\).*/\2.\3/p' "$@" | sort -u
}
