#!/usr/bin/env bash
# How a script works with the real program, on a display with a window manager (script/with-display).
# Each reads this in with `source` and calls `begin PROGRAM` first.
#
# Nothing here sleeps instead of waiting for something. Keys go the way of a user's, to the window
# that has the focus, so wait for that window before you type.

# shellcheck disable=SC2034 # all of it is for the scripts that read this in
# Places in the main window, counted from its corner in logical pixels: the name in the first row of
# the profile table, and the blank part of the list of categories.
first_profile=262,126
category_list=100,500
scale=1       # physical pixels to a logical one
environment=() # of the program, beside what it needs

# begin PROGRAM: an empty home in $work, and the end of all that was started whatever happens.
begin() {
    program=$(realpath "$1")
    script_name=$(basename "$0")
    user=$(id -un)
    work=$(mktemp -d "${TMPDIR:-/tmp}/korvan-$script_name.XXXXXX")
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
    echo "$script_name: $*" >&2
    import -window root "$script_name.png" 2>/dev/null &&
        echo "$script_name: the screen is in $PWD/$script_name.png" >&2
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

# Runs Korvan for a user without any settings. Leaves its window in `window` and its process in
# `korvan`.
start_program() {
    env -i --chdir="$work/home" PATH="$search_path" HOME="$work/home" XDG_DATA_HOME="$work/data" LANG=C.UTF-8 \
        USER="$user" DISPLAY="$DISPLAY" QT_QPA_PLATFORM=xcb DBUS_SESSION_BUS_ADDRESS=disabled: \
        "${environment[@]}" "$program" >"$work/program.log" 2>&1 &
    korvan=$!
    jobs_of_ours+=("$korvan")
    within 30 xdotool search --onlyvisible --name '^Korvan$' || fail "no window of the program"
    window=$(xdotool search --onlyvisible --name '^Korvan$' | head -n 1)
    activate "$window"
}

has_ended() { ! kill -0 "$korvan"; }

# activate WINDOW: gives it the keyboard, as a click on its title would. More than once, since the
# window manager may just be starting.
activate() {
    within 10 comes_to_front "$1" || fail "the window does not come to the front"
}

comes_to_front() { is_active "$1" || { xdotool windowactivate "$1" && is_active "$1"; }; }
is_active() { [ "$(xdotool getactivewindow)" = "$1" ]; }

# click X,Y [BUTTON OPTIONS...]: at a place counted from the corner of the window.
click() {
    local x=${1%,*} y=${1#*,}
    shift
    xdotool mousemove --window "$window" "$(scaled "$x")" "$(scaled "$y")" click "$@" 1
}

scaled() { awk "BEGIN { print int($1 * $scale) }"; }

# sql STATEMENT: runs it on the stored data, waiting its turn.
sql() { sqlite3 -cmd '.timeout 5000' "$database" "$1"; }

# --- The keyboard's way through the main window ---------------------------------------------------

# The buttons that Shift+Tab visits one after the other from the list of categories, and the stops of
# Tab from there on. A button that is not enabled is no stop.
buttons_before=(delete_category rename_category new_category panel about import export reload copy
    new delete edit connect)
stops_after=(profiles new_command hide_panel search commands copy_command edit_command
    delete_command)
has_category=no # whether a category is chosen in the list
has_profile=no  # whether a profile is selected

is_enabled() {
    case $1 in
    delete_category | rename_category) [ $has_category = yes ] ;;
    copy | delete | edit | connect) [ $has_profile = yes ] ;;
    esac
}

keys() { xdotool key --delay 25 "$@"; }
text() { printf %s "$1" | xdotool type --delay 12 --file -; }

# By way of the clipboard, for what has no key on every keyboard.
paste() {
    put_into_clipboard "$1"
    keys ctrl+v
}

# go_to STOP: gives it the keyboard.
go_to() {
    local stop way=()
    click $category_list
    for stop in "${stops_after[@]}"; do
        way+=(Tab)
        [ "$stop" != "$1" ] || { keys "${way[@]}" && return; }
    done
    way=()
    for stop in "${buttons_before[@]}"; do
        ! is_enabled "$stop" || way+=(shift+Tab)
        [ "$stop" != "$1" ] || { keys "${way[@]}" && return; }
    done
    fail "there is no $1"
}

# press STOP TITLE: presses the button and waits for the window that it opens.
press() {
    go_to "$1"
    keys space
    await_window "$2"
}

await_window() {
    within 10 has_title "$1" || fail "no window '$1' but '$(xdotool getactivewindow getwindowname)'"
}

# await_next_window TITLE KEYS...: types them and waits for another window, which may have the same
# title as the one that it comes from.
await_next_window() {
    local title=$1 before
    before=$(xdotool getactivewindow)
    shift
    keys "$@"
    within 10 is_next_window "$before" "$title" || fail "no window '$title' on: $*"
}

is_next_window() { ! is_active "$1" && has_title "$2"; }

# A sheet names the program in its title bar; its own title is its role, which is in Latin-1.
has_title() { titles | grep -E "^$1$" >/dev/null; }
titles() {
    xdotool getactivewindow getwindowname
    xprop -id "$(xdotool getactivewindow)" WM_WINDOW_ROLE | cut -d '"' -f 2 |
        xargs -0 printf %b | iconv -f latin1 -t utf-8
}

await_main_window() {
    within 10 is_active "$window" || fail "the main window does not come back"
}

put_into_clipboard() { printf %s "$1" | xclip -selection clipboard >/dev/null 2>&1; }

# drawn COMMAND...: runs it and waits until the window looks different.
drawn() {
    local before
    before=$(picture)
    "$@"
    within 10 looks_different "$before" || fail "nothing happens on: $*"
}

picture() { import -silent -window "$window" rgb:- | sha256sum; }
looks_different() { [ "$(picture)" != "$1" ]; }

select_first_profile() {
    has_profile=yes
    drawn click $first_profile
}

# choose_category ROW: in the list; 0 is the first of the user's own.
choose_category() {
    local way=(Home Down) row
    for ((row = 0; row <= $1; row++)); do way+=(Down); done
    click $category_list
    has_category=yes
    drawn keys "${way[@]}" Return
}

choose_all() {
    click $category_list
    has_category=no
    drawn keys Home Return
}
