# shellcheck shell=bash disable=SC2034  # the arrays are for the scripts that source this
# Sourced by ./run, ./test, ./lint, ./tour and .ci/run: installs the Debian packages that are
# missing, and only those.

# What building and running the program takes; ICU is the tests', which are configured with the rest.
build_packages=(g++ cmake ninja-build ccache qt6-base-dev qt6-webengine-dev libgl-dev
    libsqlitecpp-dev libsqlite3-dev libicu-dev fonts-dejavu-core)
# What the tests take besides.
test_packages=(poppler-utils clang libclang-rt-dev strace
    xvfb openbox xdotool dbus at-spi2-core python3-pyatspi)
# What ./lint takes besides.
lint_packages=(clang-format clang-tidy clazy codespell shellcheck tidy pyflakes3 unicode-data)

# What ./package takes besides.
package_packages=(dpkg-dev file fakeroot patchelf desktop-file-utils appstream man-db lintian)

# What ./windows takes besides: the compiler, Wine and its screen, what the libraries are built
# with, and what makes the packages.
windows_packages=(g++-mingw-w64-x86-64-posix mingw-w64-tools wine wine64 libwine fonts-wine
    xvfb openbox xdotool dpkg-dev qt6-base-dev-tools tcl nsis)

install_packages() {
    local missing=() package
    for package in "$@"; do
        if [ "$(dpkg-query -W -f='${db:Status-Status}' "$package" 2>/dev/null)" != installed ]; then
            missing+=("$package")
        fi
    done
    [ ${#missing[@]} -gt 0 ] || return 0

    if ! command -v apt-get >/dev/null; then
        echo "These packages are needed: ${missing[*]}. Please install them." >&2
        return 1
    fi
    local as_root=()
    if [ "$(id -u)" -ne 0 ]; then
        as_root=(sudo)
    fi
    echo "Installing: ${missing[*]}" >&2
    "${as_root[@]}" apt-get update -qq
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
        apt-get install -y -qq --no-install-recommends "${missing[@]}"
}

# Configures a preset where that has not been done, and builds it. Quiet when nothing changed.
build_preset() {
    local preset=$1
    shift
    if [ ! -f "build/$preset/build.ninja" ]; then
        cmake --preset "$preset"
    fi
    cmake --build --preset "$preset" "$@"
}
