# shellcheck shell=bash
# Sourced by tools/try-systems: Debian systems fresh from debootstrap, and commands run in them. They
# are kept outside of the checkout, in TOVARIN_SYSTEMS_CACHE, else in ~/.cache/tovarin-systems.
#
# system_base RELEASE                     makes the tar file that the systems are unpacked from, once
# system_unpack RELEASE NAME              unpacks a system, sets "system" to its folder
# system_remove FOLDER                    removes one
# in_system FOLDER USER COMMAND...        runs a command there, with the network and without a screen
# exec_on_screen FOLDER USER COMMAND...   becomes a command there, with the screen and no network
# clone_there FOLDER USER                 puts a fresh clone of "head" there, owned by the user
# in_clone FOLDER USER COMMAND...         runs a command in that clone

systems=${TOVARIN_SYSTEMS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/tovarin-systems}
declare -rA codenames=([12]=bookworm [13]=trixie)
# All clones are of the same commit, whatever is committed meanwhile.
head=$(git rev-parse HEAD)
# Where the clone is, as the system sees it: like many a folder of users, with a blank. Not in the
# home of one of them, which the others, a superuser without all the rights included, may not enter.
readonly clone="/srv/my tovarin"

# Makes the mounts, goes there and runs the command. All of it happens in a namespace of its own, so
# that the mounts are gone with the last process, however that ends, and nobody else ever sees them.
# The root is changed in a way that leaves the browser its sandbox, which "chroot" would not.
# shellcheck disable=SC2016  # it is for the shell there
readonly system_init='
    mount --bind "$1" "$1"
    cd "$1"
    shift
    mount -t proc proc proc
    mount --rbind /sys sys
    mount --rbind /dev dev
    mount -t tmpfs -o mode=1777 tmpfs dev/shm
    if [ -n "$DISPLAY" ]; then
        mkdir -p tmp/.X11-unix
        mount --bind /tmp/.X11-unix tmp/.X11-unix
    fi
    pivot_root . .
    umount -l .
    cd /
    code=0
    "$@" || code=$?
    exit $code'

# The mirror that this machine itself takes Debian from.
system_mirror() {
    local id
    # shellcheck source=/dev/null
    id=$(. /etc/os-release && echo "$ID ${VERSION_CODENAME:-}")
    if [ "${id% *}" = debian ]; then
        # shellcheck disable=SC2016  # apt fills these in
        apt-get indextargets --format '$(REPO_URI) $(RELEASE)' 'Created-By: Packages' \
            | awk -v suite="${id#* }" '$2 == suite { print $1; exit }'
    fi
}

system_base() {
    local name=${codenames[$1]} mirror work=$systems/work/base-$1
    [ ! -f "$systems/$name.tar" ] || return 0
    mirror=$(system_mirror)
    mkdir -p "$work"
    # It mounts things, too.
    setpriv --pdeathsig KILL unshare --mount --pid --fork --kill-child \
        debootstrap --variant=minbase "$name" "$work" "${mirror:-http://deb.debian.org/debian}" \
        && tar -C "$work" -cf "$systems/$name.tar.new" . \
        && mv "$systems/$name.tar.new" "$systems/$name.tar" \
        && system_remove "$work"
}

system_unpack() {
    system=$systems/work/$2
    system_remove "$system"
    mkdir -p "$system" \
        && tar -C "$system" -xf "$systems/${codenames[$1]}.tar" \
        && in_system "$system" root useradd --create-home --shell /bin/bash --uid 1000 parent
}

# Nothing is ever mounted there that could be removed with it; not even then would it be.
system_remove() {
    rm -rf --one-file-system "$1"
}

# exec_there DISPLAY FOLDER USER COMMAND...
exec_there() {
    local display=$1 folder=$2 user=$3 home=/home/$3 network=()
    shift 3
    [ "$user" != root ] || home=/root
    [ -z "$display" ] || network=(--net)
    cp --remove-destination -L /etc/resolv.conf "$folder/etc/resolv.conf"
    DISPLAY=$display exec setpriv --pdeathsig KILL \
        unshare --mount --pid --fork --kill-child "${network[@]}" \
        sh -euc "$system_init" sh "$folder" \
        env -i HOME="$home" USER="$user" LOGNAME="$user" LANG=C.UTF-8 ${display:+DISPLAY="$display"} \
        PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin \
        setpriv --reuid "$user" --regid "$user" --init-groups "$@"
}
exec_on_screen() { exec_there "$DISPLAY" "$@"; }
in_system() { (exec_there "" "$@" </dev/null); }

install_there() {
    local folder=$1
    shift
    in_system "$folder" root apt-get update -qq \
        && in_system "$folder" root env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y --no-install-recommends "$@"
}

# An ordinary user who may install packages, as the first user of a computer may.
let_parent_administer() {
    install_there "$1" sudo git \
        && echo 'parent ALL=(ALL) NOPASSWD: ALL' >"$1/etc/sudoers.d/parent" \
        && chmod 440 "$1/etc/sudoers.d/parent"
}

clone_there() {
    local folder=$1 user=$2
    system_remove "$folder$clone"
    # Not by links to the files of this checkout, which would change hands with the clone.
    git clone --quiet --no-hardlinks . "$folder$clone" \
        && git -C "$folder$clone" checkout --quiet "$head" \
        && in_system "$folder" root chown -R "$user:$user" "$clone"
}
in_clone() {
    local folder=$1 user=$2
    shift 2
    # shellcheck disable=SC2016  # it is for the shell there
    in_system "$folder" "$user" sh -c 'cd "$1" && shift && exec "$@"' sh "$clone" "$@"
}
