# shellcheck shell=bash
# Sourced by tools/try-systems and tools/wine.sh: a screen that nobody sees, and the keys, clicks and
# eyes of somebody in front of it.
#
# screen_start                   makes it, with a window manager, the DISPLAY of what is started later
# screen_end                     ends it, and with it what it shows
# within SECONDS COMMAND...      whether a condition comes true within the seconds
# has_window TITLE               whether there is such a window
# has_no_window TITLE            whether there is none
# picture FILE                   what is on the screen
# press KEY...                   types keys

screen_start() {
    local from number
    # It also ends when the script is killed.
    exec {from}< <(exec setpriv --pdeathsig TERM \
        Xvfb -displayfd 1 -screen 0 1280x1024x24 -nolisten tcp 2>/dev/null)
    screen_process=$!
    read -r -u "$from" number
    export DISPLAY=:$number
    openbox >/dev/null 2>&1 &
}
screen_end() {
    [ -z "${screen_process:-}" ] || kill "$screen_process" 2>/dev/null || true
}

within() {
    local end=$((SECONDS + $1))
    shift
    until "$@"; do
        [ $SECONDS -lt $end ] || return 1
        sleep 0.2
    done
}
has_window() { xdotool search --onlyvisible --name "$1" >/dev/null 2>&1; }
has_no_window() { ! has_window "$1"; }
picture() { import -window root "$1"; }
press() { xdotool key --delay 200 "$@"; }
