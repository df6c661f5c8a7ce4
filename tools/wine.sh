# shellcheck shell=bash
# Sourced by ./windows and tools/try-windows-packages: sets up Wine as the stand-in for Windows, in a
# folder of its own, on a screen of its own, so that nothing comes up on that of whoever runs this.
# Takes tools/screen.sh.
#
# wine PROGRAM ...           runs a program in it
# wine_setup PREFIX          makes the folder if it is not there, and exports what Wine needs
# wine_for_tests LIBRARIES   lets programs run that are not installed, and off screen
# wine_ready PROGRAM ...     waits until it runs that one
# wine_end                   ends what runs in it, and the screen

# The folders that hold the libraries of the compiler.
compiler_library_folders() {
    dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)"
    echo /usr/x86_64-w64-mingw32/lib
}

# Runs a program, at addresses that are the same each time. Where they are random, one start in some
# hundreds fails ("failed to map the shared user data"): most likely since the heap is then where Wine
# needs a page of its own.
wine() {
    local fixed=(setarch --addr-no-randomize)
    "${fixed[@]}" true 2>/dev/null || fixed=()
    "${fixed[@]}" "$(type -P wine)" "$@"
}

wine_setup() {
    local font
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all
    # Else the letters of paths and arguments would be lost.
    export LC_ALL=C.UTF-8
    # Neither of the two that Wine would like to download: the page engine, and .NET.
    export WINEDLLOVERRIDES="mscoree,mshtml="
    screen_start
    if [ ! -f "$WINEPREFIX/ready" ]; then
        rm -rf "$WINEPREFIX"
        mkdir -p "$WINEPREFIX"
        wine wineboot -i >/dev/null 2>&1
        # It comes up as an older Windows than the program is for.
        wine winecfg -v win10 >/dev/null 2>&1
        for font in "MS Shell Dlg" "MS Shell Dlg 2" "Segoe UI"; do
            wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$font" /d "DejaVu Sans" /f \
                >/dev/null 2>&1
        done
        wineserver -w
        touch "$WINEPREFIX/ready"
    fi
    wine_start
}

wine_for_tests() {
    local libraries=$1 folder
    WINEPATH=$(winepath_of "$libraries/bin")
    for folder in $(compiler_library_folders); do
        WINEPATH="$WINEPATH;$(winepath_of "$folder")"
    done
    export WINEPATH
    # Of the environment, Wine keeps what begins with QT_ from its programs.
    wine reg add 'HKCU\Environment' /v QT_QPA_PLATFORM /d offscreen /f >/dev/null 2>&1
    wine_start
}

# Waits until Wine runs a program to its end. While it still sets itself up, the first programs that
# are started at once may end without a word.
wine_ready() {
    local try said
    for try in 1 2 3 4 5; do
        if said=$("$(dirname "${BASH_SOURCE[0]}")/run-with-wine" "$@" 2>&1); then
            return 0
        fi
        echo "Wine is not ready yet ($try): $said" >&2
        sleep 2
    done
    return 1
}

# What Wine runs in the background would else hold on to the output of whoever needs it first.
wine_start() {
    wine_stop # it may know of another screen or environment
    wineserver -p
    wine cmd /c exit </dev/null >/dev/null 2>&1
}

# A path as Wine's programs see it.
winepath_of() {
    printf 'Z:%s' "${1//\//\\}"
}

wine_stop() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}

wine_end() {
    wine_stop
    screen_end
}
