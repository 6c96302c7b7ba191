#!/usr/bin/env bash
# The scenario runner for Windows, where the tests of scenarios expect this system's: they start what
# CORVANE_SCENARIO_RUNNER names. CORVANE_WINDOWS_RUNNER names the program, CORVANE_WINE wine64.
#
# Under Wine a path without a drive is on the drive of the current folder, so that paths of this
# system are good there.
exec "$CORVANE_WINE" "$CORVANE_WINDOWS_RUNNER" "$@"
