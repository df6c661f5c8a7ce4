# shellcheck shell=bash
# Sourced by ./windows and what tries the Windows program by hand: sets up Wine as the stand-in for
# Windows, in a folder of its own.
#
# wine_setup PREFIX LIBRARIES   makes the folder if it is not there, and exports what Wine needs
# wine_end                      ends what runs in it

# The folders that hold the libraries of the compiler.
compiler_library_folders() {
    dirname "$(x86_64-w64-mingw32-g++-posix -print-file-name=libstdc++-6.dll)"
    echo /usr/x86_64-w64-mingw32/lib
}

wine_setup() {
    local libraries=$2 folder
    export WINEPREFIX=$1 WINEARCH=win64 WINEDEBUG=-all
    # Else the letters of paths and arguments would be lost.
    export LC_ALL=C.UTF-8
    # Neither of the two that Wine would like to download: the page engine, and .NET.
    export WINEDLLOVERRIDES="mscoree,mshtml="
    WINEPATH=$(winepath_of "$libraries/bin")
    for folder in $(compiler_library_folders); do
        WINEPATH="$WINEPATH;$(winepath_of "$folder")"
    done
    export WINEPATH
    if [ -f "$WINEPREFIX/ready" ]; then
        wine_start
        return 0
    fi
    rm -rf "$WINEPREFIX"
    mkdir -p "$WINEPREFIX"
    wineboot -i >/dev/null 2>&1
    # It comes up as an older Windows than the program is for.
    wine winecfg -v win10 >/dev/null 2>&1
    for folder in "MS Shell Dlg" "MS Shell Dlg 2" "Segoe UI"; do
        wine reg add 'HKCU\Software\Wine\Fonts\Replacements' /v "$folder" /d "DejaVu Sans" /f \
            >/dev/null 2>&1
    done
    # Of the environment, it keeps what begins with QT_ from the programs. Tests run off screen.
    wine reg add 'HKCU\Environment' /v QT_QPA_PLATFORM /d offscreen /f >/dev/null 2>&1
    wineserver -w
    touch "$WINEPREFIX/ready"
    wine_start
}

# What Wine runs in the background would else hold on to the output of whoever needs it first.
wine_start() {
    wine_end # it may know of another screen
    wineserver -p
    wine cmd /c exit </dev/null >/dev/null 2>&1
}

# A path as Wine's programs see it.
winepath_of() {
    printf 'Z:%s' "${1//\//\\}"
}

wine_end() {
    wineserver -k 2>/dev/null || true
    wineserver -w 2>/dev/null || true
}
