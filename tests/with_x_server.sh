#!/usr/bin/env bash
# Runs a command on an X server of its own, without a screen: with_x_server.sh COMMAND [ARGUMENT...]
set -euo pipefail

folder=$(mktemp -d)
mkfifo "$folder/display"
# The server chooses a free display and writes its number once it takes connections.
Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp 3>"$folder/display" 2>"$folder/log" &
server=$!
trap 'kill "$server" 2>/dev/null || true; rm -rf "$folder"' EXIT
if ! read -r number <"$folder/display"; then
    cat "$folder/log" >&2
    exit 1
fi
DISPLAY=":$number" "$@"
