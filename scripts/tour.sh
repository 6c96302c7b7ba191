#!/usr/bin/env bash
# Plays a short tour on a display in memory: starts the program, then opens a copy of an example,
# edits it through the windows, saves it, and checks that the saved file holds that edit and
# nothing else. Prints what it does, leaves screenshots. Needs the targets corvane and
# corvane_scenario, built with the preset "release", and Xvfb.
set -euo pipefail
# shellcheck source=scripts/common.sh
source "$(dirname "${BASH_SOURCE[0]}")/common.sh"

PROGRAM=$PWD/build/src/app/corvane
RUNNER=$PWD/build/tests/corvane_scenario
EXAMPLE=$PWD/examples/crystal.mdl

command -v Xvfb >/dev/null || die "The tour needs Xvfb, a display in memory."
folder=$(mktemp -d "${TMPDIR:-/tmp}/corvane-tour.XXXXXX")
display_folder=$folder/display
mkdir -m 700 "$display_folder"
server=
program=

# Ends what was started; the screenshots stay.
cleanup() {
    [[ -z $program ]] || kill "$program" 2>/dev/null || true
    [[ -z $server ]] || kill "$server" 2>/dev/null || true
    wait
    rm -rf "$display_folder"
}
trap cleanup EXIT

fail() {
    say "FAILED: $*" "(everything is still in $folder)" >&2
    exit 1
}

start_display() {
    local number
    mkfifo "$display_folder/number"
    # -fbdir keeps the picture in a file, where it can be looked at without another program.
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -fbdir "$display_folder" \
        3>"$display_folder/number" 2>"$display_folder/log" &
    server=$!
    read -r -t 30 number <"$display_folder/number" || {
        cat "$display_folder/log" >&2
        fail "Xvfb did not start."
    }
    export DISPLAY=:$number
    unset WAYLAND_DISPLAY
    # One platform, one locale and the standard scale, whatever the user's own are: the tour is the
    # same everywhere.
    export QT_QPA_PLATFORM=xcb LC_ALL=C.UTF-8 XDG_RUNTIME_DIR=$display_folder
    unset QT_SCALE_FACTOR QT_SCREEN_SCALE_FACTORS QT_FONT_DPI QT_STYLE_OVERRIDE
}

# The program itself: its window shows up, and it goes on running.
start_program() {
    local screen=$display_folder/Xvfb_screen0 empty=$display_folder/empty tenths=0
    cp "$screen" "$empty"
    "$PROGRAM" >"$folder/corvane.log" 2>&1 &
    program=$!
    while cmp -s "$screen" "$empty"; do
        kill -0 "$program" 2>/dev/null || break
        ((++tenths <= 300)) || fail "the program showed no window within 30 seconds."
        sleep 0.1
    done
    kill -0 "$program" 2>/dev/null || {
        cat "$folder/corvane.log" >&2
        fail "the program ended by itself."
    }
    kill "$program"
    wait "$program" || true
    program=
}

# The eight facets at the crystal's upper end meet in a tip, which every one of them has a vertex
# of its own for. In the front view (209 by 201 pixels, 0.75 model units to a pixel, the origin in
# its middle, the file's Y across and its Z up) that tip is at (104.5, 15).
TIP='\t\t{ 0, 0, 64 },'
TIP_VERTICES=8
# The last drag: 20 pixels to the right, 4 up.
MOVED_TIP='\t\t{ 0, 15, 67 },'

write_scenario() {
    cat <<SCENARIO
screenshot window "1-first-window.png"
answer file "$folder/crystal.mdl"
menu mnuOpen
wait 300
screenshot window "2-opened.png"
dump
drag pbxFront left 90 5 119 28
screenshot window "3-selected.png"
dump
press cmdMove
drag pbxFront right 140 60 116 76
screenshot window "4-moved.png"
dump
menu mnuUndo
screenshot window "5-undone.png"
dump
drag pbxFront right 140 60 160 56
screenshot window "6-moved-again.png"
dump
menu mnuSave
dump
close
SCENARIO
}

# said EXPECTED ACTUAL TEXT: says what was done once the program shows it.
said() {
    [[ $1 == "$2" ]] || fail "this did not happen: $3 Expected \"$1\", found \"$2\"."
    say "   $3"
}

# count TEXT: how often TEXT stands in the dump that was read last.
count() { grep -oF -- "$1" <<<"$dump" | wc -l | tr -d ' '; }

# The name of the newest step that can be undone.
newest_step() { grep -o '"mnuUndo":{"caption":"[^"]*"' <<<"$dump" | sed 's/.*:"//; s/"$//'; }

next_dump() {
    while read -r dump; do
        case $dump in
            *'"event":"dump"'*) return ;;
            *'"event":"error"'*) fail "the scenario stopped: $dump" ;;
        esac
    done
    fail "the scenario ended too early."
}

# Follows the scenario from dump to dump and says what happened.
play() {
    local dump
    next_dump
    said 1 "$(count '"modelLoaded":true')" \
        "Opened $folder/crystal.mdl, a copy of examples/crystal.mdl."
    next_dump
    said "$TIP_VERTICES" "$(count '"selected":true')" \
        "Selected the crystal's tip with a box in the front view: $TIP_VERTICES vertices."
    next_dump
    said "Undo Move" "$(newest_step)" \
        "Moved it with the right mouse button, 18 units to the left and 12 down."
    next_dump
    said "Undo Selection" "$(newest_step)" "Undid that."
    next_dump
    said "Undo Move" "$(newest_step)" "Moved it again, 15 units to the right and 3 up."
    next_dump
    say "   Saved."
    while read -r dump; do
        [[ $dump != *'"event":"error"'* ]] || fail "the scenario stopped: $dump"
    done
}

play_scenario() {
    cp "$EXAMPLE" "$folder/crystal.mdl"
    write_scenario >"$folder/tour.txt"
    (cd "$folder" && exec "$RUNNER" tour.txt 2>>corvane.log) | play || {
        # Where play() found the fault it has said so.
        [[ ${PIPESTATUS[1]} != 0 ]] || fail "the scenario was not played to its end."
        exit 1
    }
    say "   Closed the window."
}

check_saved_file() {
    local picture previous=
    # The working copy goes when the window closes.
    [[ ! -e $folder/crystal_TMP.tdl ]] || fail "the working copy was left behind."
    sed "/^\tVertices /,/^\t}\$/ s/^$TIP\$/$MOVED_TIP/" "$EXAMPLE" >"$folder/expected.mdl"
    cmp "$folder/expected.mdl" "$folder/crystal.mdl" ||
        fail "the saved file is not the original with the tip moved."
    said "$TIP_VERTICES" "$(diff "$EXAMPLE" "$folder/crystal.mdl" | grep -c '^>')" \
        "The saved file differs from the original in $TIP_VERTICES lines, those of the tip."
    rm "$folder/expected.mdl"
    for picture in "$folder"/[1-6]-*.png; do
        [[ -s $picture ]] || fail "the screenshot $picture is missing."
        [[ -z $previous ]] || ! cmp -s "$previous" "$picture" ||
            fail "the screenshots $previous and $picture show the same."
        previous=$picture
    done
}

section "Starting a display in memory"
start_display
say "   Xvfb serves display $DISPLAY."

section "Starting Corvane"
start_program
say "   The program showed its window. It is closed again: the tour has a window of its own."

section "A short tour"
play_scenario

section "Checking the saved file"
check_saved_file

section "Done. Screenshots, and the saved model:"
printf '   %s\n' "$folder"/*.png "$folder/crystal.mdl"
