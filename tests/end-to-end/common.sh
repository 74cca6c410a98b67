#!/usr/bin/env bash
# What the tests here share; each reads it in with `source` and calls `begin PROGRAM` first. They run
# the real program on a display with a window manager (see script/with-display).
#
# Nothing here sleeps instead of waiting for something. Keys and clicks go the way of a user's: to the
# window that has the focus, so a test waits for that window before it types.

# shellcheck disable=SC2034 # all of it is for the scripts that read this in
# Places in the main window, counted from its corner: the name in the first row of the profile table,
# and the blank part of the list of categories.
first_profile=262,126
category_list=100,500

# begin PROGRAM: an empty home in $work, and the end of all that was started whatever happens.
begin() {
    program=$(realpath "$1")
    test_name=$(basename "$0")
    user=$(id -un)
    work=$(mktemp -d "${TMPDIR:-/tmp}/korvan-$test_name.XXXXXX")
    database=$work/data/korvan/defaults.sqlite3
    search_path=$PATH
    jobs_of_ours=()
    mkdir "$work/home"
    set -E
    trap 'fail "line $LINENO: $BASH_COMMAND"' ERR
    trap end EXIT
    trap 'exit 1' INT TERM
}

end() {
    local status=$? job
    for job in "${jobs_of_ours[@]}"; do kill "$job" 2>/dev/null && wait "$job" 2>/dev/null || true; done
    if declare -F clean_up >/dev/null; then clean_up; fi
    rm -rf "$work"
    exit $status
}

fail() {
    echo "$test_name: $*" >&2
    import -window root "$test_name.png" 2>/dev/null &&
        echo "$test_name: the screen is in $PWD/$test_name.png" >&2
    local log
    for log in "$work"/*.log; do [ ! -s "$log" ] || sed "s|^|$(basename "$log"): |" "$log" >&2; done
    exit 1
}

# Waits until a command succeeds: within SECONDS COMMAND...
within() {
    local deadline=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ $SECONDS -lt $deadline ] || return 1
        sleep 0.05
    done
}

# Runs Korvan as a user without any settings would. Leaves its window in `window` and its process in
# `korvan`.
start_program() {
    env -i PATH="$search_path" HOME="$work/home" XDG_DATA_HOME="$work/data" LANG=C.UTF-8 \
        USER="$user" DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled: \
        "$program" >"$work/program.log" 2>&1 &
    korvan=$!
    jobs_of_ours+=("$korvan")
    within 30 xdotool search --onlyvisible --name '^Korvan$' || fail "no window of the program"
    window=$(xdotool search --onlyvisible --name '^Korvan$' | head -n 1)
    activate "$window"
}

# activate WINDOW: gives it the keyboard, as a click on its title would.
activate() {
    xdotool windowactivate "$1"
    within 10 is_active "$1" || fail "the window does not come to the front"
}

is_active() { [ "$(xdotool getactivewindow)" = "$1" ]; }

# click X,Y [BUTTON OPTIONS...]: at a place counted from the corner of the window.
click() {
    local place=$1
    shift
    xdotool mousemove --window "$window" "${place%,*}" "${place#*,}" click "$@" 1
}

# sql STATEMENT: runs it on the stored data, waiting its turn.
sql() { sqlite3 -cmd '.timeout 5000' "$database" "$1"; }
