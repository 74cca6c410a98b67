#!/usr/bin/env bash
# The pictures that are for a look and for no page. script/screenshots reads this in; each take_GROUP
# is one of its groups, and starts and ends with the usual data, scale and text size.
# shellcheck disable=SC2034,SC2154 # it shares the names of who reads it

modes=(light dark)

# --- Sizes, scales, fonts, contrast ---------------------------------------------------------------

# take_width NAME WIDTH HEIGHT: of the main window, in logical pixels.
take_width() {
    xdotool windowsize "$window" "$(scaled "$2")" "$(scaled "$3")"
    await_rest
    take "$1"
}

take_main_windows() {
    take_width main-window-wide 2560 1300
    take_width main-window-least 1 1
    take_width main-window-nothing-selected 1440 900
    # Where a row is depends on the size of the text.
    find_regions
    point_at "Webserver Köln"
    has_profile=yes
    drawn xdotool click 1
    take main-window
}

take_sizes() {
    for mode in "${modes[@]}"; do on_desktop "$mode" take_main_windows; done
}

take_scales() {
    for scale in 1.25 1.5 2; do
        for mode in "${modes[@]}"; do on_desktop "$mode" take_main_window take_sheets; done
    done
    scale=1
}

take_fonts() {
    for points in 14 18; do on_desktop light take_main_windows take_sheets; done
    on_desktop dark take_main_windows take_sheets
    points=10
}

take_contrast() {
    for mode in black-on-white white-on-black; do
        on_desktop $mode take_main_windows take_sheets take_messages_of_sheets
    done
}

# --- Odd texts ------------------------------------------------------------------------------------

odd_texts=("日本語のサーバー 東京" "خادم الويب الرئيسي" "🚀 Rakete 👩‍👩‍👧‍👦 🇩🇪" 'a\tb\u000bc\u0085d\ne\r\nf'
    "<b>fett</b> &quot;wörtlich&quot; && wie geschrieben" "$(printf 'sehr-lang-%.0s' {1..30})"
    "$(printf 'Zeile %s\\n' {1..60})" "Z̴͎͠a̵̰͝l̷͖̈g̵̹̀o̶̘͌ über Ställe")

store_odd_data() {
    local number text profiles='' categories='' commands=''
    for ((number = 0; number < ${#odd_texts[@]}; number++)); do
        text=${odd_texts[number]}
        profiles+=",{\"id\":\"$(id 1 $number)\",\"name\":\"$text\",\"host\":\"$text\",\"user\":\"$text\""
        profiles+=",\"port\":22,\"identityFile\":\"\",\"password\":\"\",\"extraArgs\":\"\"}"
        categories+=",{\"id\":\"$(id 2 $number)\",\"name\":\"$text\"}"
        commands+=",{\"id\":\"$(id 3 $number)\",\"title\":\"$text\",\"hint\":\"$text $text\""
        commands+=",\"commandTemplate\":\"echo $text $text {HOST}\"}"
    done
    store "[${profiles:1}]" "[${categories:1}]" "[${commands:1}]"
}

take_odd_texts() {
    take_width odd-texts 1440 1300
    select_first_profile
    take_width odd-texts-selected 1440 1300
    find_regions
    hover "Copy: ${odd_texts[4]}" odd-tool-tip
    press edit "SSH Profil bearbeiten"
    take_sheet odd-profile-editor
    go_to copy_command
    keys space
    take odd-toast
    xdotool mousemove --window "$window" 400 330 sleep 1.2
    await_stillness
    write_picture odd-cell-tool-tip -window root
}

take_odd() {
    store_odd_data
    for mode in "${modes[@]}"; do on_desktop "$mode" take_odd_texts; done
    store_usual_data
}

# --- States of controls ---------------------------------------------------------------------------

around() { # the control and what lies beside it
    local width height x y
    IFS='x+' read -r width height x y <<<"$1"
    echo "$((width + 32))x$((height + 32))+$((x - 16))+$((y - 16))"
}

point_at() { # the middle of a control
    local width height x y
    IFS='x+' read -r width height x y <<<"${place[$1]}"
    xdotool mousemove $((x + width / 2)) $((y + height / 2))
}

# hover CONTROL NAME: with the pointer on it.
hover() {
    [ -n "${place[$1]:-}" ] || fail "there is no control '$1'"
    point_at "$1"
    await_stillness
    write_picture "$2" -window root -crop "$(around "${place[$1]}")" +repage
}

# take_control NAME CONTROL: under the pointer, pressed, and after that; the button is let go elsewhere.
take_control() {
    hover "$2" "state-$1-hover"
    xdotool mousedown 1
    hover "$2" "state-$1-pressed"
    xdotool mousemove 3199 1999 mouseup 1
    hover "$2" "state-$1-hover-again"
}

# take_focus NAME CONTROL [KEYS...]: with the keyboard's focus, which it has after the keys.
take_focus() {
    [ $# -eq 2 ] || keys "${@:3}"
    await_rest
    write_picture "state-$1-focused" -window root -crop "$(around "${place[$2]}")" +repage
}

take_states_of_main_window() {
    select_first_profile
    find_regions
    take_control push-button Neu
    take_control destructive-button Löschen
    take_control symbol-button "Kategorie hinzufügen"
    take_control category-row Produktion
    take_control table-row Datenbank
    take_control command-row "Ping Host"
    take_control copy-button "Copy: Ping Host"
    click 660,12 # nothing is there
    go_to new && take_focus push-button Neu
    go_to delete && take_focus destructive-button Löschen
    go_to new_category && take_focus symbol-button "Kategorie hinzufügen"
    go_to profiles && take_focus table-row "Webserver Köln" Home
    take_focus category-row "Produktion" shift+Tab Home Down Down
    go_to commands && take_focus command-row "Ping Host" Home
    go_to copy_command && take_focus copy-button "Copy: Ping Host"
    go_to search && take state-search-field-focused
}

take_states_of_editors() {
    press edit "SSH Profil bearbeiten"
    find_regions
    take_control default-button Speichern
    take_control cancel-button Abbrechen
    take_control link-button Anzeigen
    keys Escape # the pointer has taken the focus along
    await_main_window
    press edit "SSH Profil bearbeiten"
    take state-text-field-focused
    keys Tab Tab Tab Tab
    take state-combo-box-focused
    take_focus link-button Anzeigen Tab Tab
    take_focus other-button Auswählen… Tab
    take_focus symbol-button-of-editor "Key entfernen" Tab
    take_focus cancel-button Abbrechen Tab Tab
    take_focus default-button Speichern Tab
    keys Escape
    await_main_window
    press edit_command "Befehl bearbeiten"
    keys Tab Tab
    take_sheet state-template-focused
}

take_states() {
    for mode in "${modes[@]}" white-on-black; do
        on_desktop "$mode" take_states_of_main_window take_states_of_editors
    done
}

# --- Sheets with their errors, alerts -------------------------------------------------------------

# take_message STOP TITLE NAME: of a sheet that is saved as it stands when it opens.
take_message() {
    press "$1" "$2"
    keys Return
    take_sheet "$3"
}

take_messages_of_sheets() {
    take_message new "Neues SSH Profil" profile-editor-message
    take_message new_category "Neue Kategorie" category-editor-message
    take_message new_command "Neuer Befehl" command-editor-message
}

take_alerts() {
    choose_category 0
    press rename_category "Kategorie bearbeiten"
    take_sheet category-editor
    press delete_category "Kategorie wirklich löschen\?"
    take_sheet category-delete-confirmation
    choose_all
    press delete_command "Befehl wirklich löschen\?"
    take_sheet command-delete-confirmation
    press import "Korvan Import"
    take open-panel
    text "$work/home/Korvan_Backup.json"
    await_next_window Fehler Return
    take_sheet error-alert
    press export "Korvan Export"
    text "$work/home/Korvan_Backup.json"
    await_next_window "Korvan Export" Return
    take replace-question
    await_next_window "Korvan Export" Escape
    keys Escape
    await_main_window
    press export "Korvan Export"
    text "$work/home/voll-$mode.json"
    keys Return
    await_main_window
    take toast
    press import "Korvan Import"
    text "$work/home/voll-$mode.json"
    await_next_window "Import aus Datei" Return
    take_sheet import-confirmation
}

# Of the profile with sixty lines in its name.
take_long_alerts() {
    go_to profiles
    keys Home Down Down Down Down Down Down
    has_profile=yes
    press delete "Profil wirklich löschen\?"
    take long-alert
    keys shift+Tab shift+Tab
    take_sheet long-alert-focused
}

take_messages() {
    for mode in "${modes[@]}"; do on_desktop "$mode" take_messages_of_sheets take_alerts; done
    store_odd_data
    for mode in "${modes[@]}"; do on_desktop "$mode" take_long_alerts; done
    store_usual_data
}

# --- By keyboard alone ----------------------------------------------------------------------------

step() {
    steps=$((steps + 1))
    take "walk-$(printf %02d $steps)-$1"
}

# tab_to STOP: from the stop `at`, as somebody without a mouse goes there.
tab_to() {
    local index stops=() from to way=()
    for ((index = ${#buttons_before[@]} - 1; index >= 0; index--)); do
        ! is_enabled "${buttons_before[index]}" || stops+=("${buttons_before[index]}")
    done
    stops+=(categories "${stops_after[@]}")
    for index in "${!stops[@]}"; do
        [ "${stops[index]}" != "$at" ] || from=$index
        [ "${stops[index]}" != "$1" ] || to=$index
    done
    for ((index = from; index < to; index++)); do way+=(Tab); done
    for ((index = from; index > to; index--)); do way+=(shift+Tab); done
    at=$1
    [ ${#way[@]} -eq 0 ] || keys "${way[@]}"
}

walk() {
    steps=0
    at=profiles
    step start
    tab_to new_category
    step new-category
    keys space
    await_window "Neue Kategorie"
    step category-editor
    text "Server"
    step category-typed
    keys Return
    await_main_window
    tab_to new
    step new-profile
    keys space
    await_window "Neues SSH Profil"
    text "Ablage"
    keys Tab
    text "ablage.example.org"
    keys Tab
    text "kim"
    step profile-editor
    keys Tab Tab Down
    step profile-category
    keys Return
    await_main_window
    step profile-made
    tab_to profiles
    keys End
    has_profile=yes
    step profile-selected
    tab_to search
    text "ping"
    step search
    tab_to commands
    keys Home
    step command
    tab_to copy_command
    step copy
    keys space
    step copied
    tab_to export
    step export
    keys space
    await_window "Korvan Export"
    step export-panel
    text "$work/home/ablage-$mode.json"
    keys Return
    await_main_window
    step exported
    tab_to delete
    step delete
    keys space
    await_window "Profil wirklich löschen\?"
    step confirmation
    keys shift+Tab
    step confirmation-delete
    keys space
    await_main_window
    has_profile=no
    step deleted
}

take_walk() {
    for mode in "${modes[@]}"; do
        rm -rf "$work/data"
        on_desktop "$mode" walk
    done
    store_usual_data
}
