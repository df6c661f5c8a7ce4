# shellcheck shell=bash disable=SC2154  # these are the script's that sources this
# Sourced by tools/try-systems: a person who uses the program in a fresh system, as an ordinary user,
# in front of the screen, cut off from any network. Of the script that sources it, it takes "check",
# "fail" and "screen NAME", which takes a picture, and these, which say what is used and where:
#
# system      the folder of the system
# launcher    what is started, in the user's home
# folder      the program's folder, from the root of the system
# shipped     what the package brought, likewise
#
# first_start        names are found, ticked, saved and ranked
# later_start        they are there again
# upgraded_start     they are carried over to a newer dictionary
# tick_another       one more name is ticked

session=

# Sets "win" to the window of that title that is wider than so many pixels, once it is there.
wide_window() {
    local id width
    for id in $(xdotool search --onlyvisible --name "$1" 2>/dev/null); do
        width=$(xdotool getwindowgeometry --shell "$id" 2>/dev/null | sed -n 's/^WIDTH=//p')
        if [ "${width:-0}" -gt "$2" ]; then
            xdotool windowactivate --sync "$id" 2>/dev/null || true
            win=$id
            return 0
        fi
    done
    return 1
}
window() { within 60 wide_window "$1" "$2"; }
has_windows() { [ "$(xdotool search --onlyvisible --name Tovarin 2>/dev/null | wc -l)" = "$1" ]; }
# Whether nothing has come up beside the window; a message would have.
only_window() { sleep 1 && has_windows 1; }
click() {
    xdotool mousemove --window "$win" "$1" "$2" click 1
    sleep 0.5
}
open_tab() {
    local -A places=([search]=240 [worksheet]=316)
    click "${places[$1]}" 14
    sleep 1
}

# What the user's database holds. The engine's own shell doesn't know the order of texts that the
# indexes are in.
database() { sqlite3 "$system/$folder/Tovarin.mdb" "$1"; }
counts() {
    database "select (select count(*) from tblmaster not indexed where name_select = 'Y')
        || ' ' || (select count(*) from tblresult) || ' ' || (select count(*) from tbltopn)"
}
has_counts() { [ "$(counts)" = "$*" ]; }
# The ticked names, the shortlist and the ranking, one a line.
users_names() {
    database "select 'tick', name_desc, name_sex, org_desc from tblmaster not indexed, tblorg
            where org_id = name_orgid and name_select = 'Y';
        select 'shortlist', * from tblresult; select 'rank', * from tbltopn" | sort
}

start() {
    exec_on_screen "$system" parent sh -c "$1; sleep 600" >>"$log" 2>&1 &
    session=$!
}
end_session() {
    if [ -n "$session" ]; then
        kill -KILL "$session" 2>/dev/null || true
        wait "$session" 2>/dev/null || true
        session=
    fi
}
leave() {
    press alt+F4
    # Whether to leave?
    within 30 has_windows 2 && press alt+y && within 30 has_no_window Tovarin
}
leave_program() {
    check "the program ends when it is left" leave
    end_session
}
pass_splash() {
    check "$1" window '^Tovarin Names Dictionary' 300
    sleep 1
    screen "$2"
    press Return
    check "the main window comes" window '^Tovarin Names Dictionary' 900
    check "and nothing else" only_window
}

first_start() {
    local y
    start "cd && $launcher"
    pass_splash "the first start shows the splash window" 1-splash
    sleep 3
    screen 2-things
    press Right
    sleep 2
    screen 3-popular
    open_tab search
    press alt+s
    for y in 143 160 178; do click 904 "$y"; done
    screen 4-ticked
    check "three ticks are in the database in $folder" has_counts 3 0 0
    press alt+v
    screen 5-saved
    press Return
    check "the shortlist is there" has_counts 3 3 0
    rank_two
    leave_program
}
# In the last column of the first and of the third name, the first of the free ranks.
rank_two() {
    local y
    for y in 369 403; do
        click 800 "$y"
        press Home Return
    done
    screen 6-ranked
    press alt+s
    screen 7-ranking-saved
    press Return
    check "two names are ranked" has_counts 3 3 2
}

# Started again with the names as a file has them.
later_start() {
    local what=$1 names=$2 file=$system/$folder/Tovarin.mdb before
    before=$(sha256sum <"$file")
    start "cd && $launcher"
    pass_splash "$what shows the splash window" "$3-splash"
    check "ticks, shortlist and ranking are there" same_names "$names"
    open_tab worksheet
    screen "$3-ranking"
    leave_program
    # Looking on needs no writing; a new order of the indexes or an upgrade would.
    check "the database is what it was, byte by byte" test "$before" = "$(sha256sum <"$file")"
}
same_names() { users_names | diff "$1" -; }
tick_another() {
    start "cd && $launcher"
    pass_splash "a start to tick one more name" "$1-splash"
    open_tab search
    press alt+s
    click 904 195
    screen "$1-fourth-tick"
    check "a fourth tick is in the database" has_counts 4 3 2
    leave_program
}

# Started after the package has brought a dictionary without one of the ticked names, told as the
# program would. A file has the names that are expected then.
upgraded_start() {
    local gone=$1 expected=$2 backup=$system/$folder/Tovarin-backup-1
    start "cd && $launcher"
    check "a newer dictionary is told" window '^Tovarin$' 200
    sleep 0.5
    screen 9-upgrade
    check "all but the tick that is gone is carried over" same_names "$expected"
    check "the backup is there" test -f "$backup.mdb"
    check "the tick that is gone is listed" grep -qF "$gone" "$backup.txt"
    press Return
    pass_splash "the program starts after it" 10-splash
    leave_program
}
