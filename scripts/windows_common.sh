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
