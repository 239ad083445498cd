# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# A Debian of its own to try things in: installed from the archive that this machine installs from, entered by
# root, removed afterwards. Downloads are kept below build/.

# skip REASON... - ends the script: what it needs isn't there.
skip() {
    echo "skipped: $*"
    exit 77
}

# The archive of Debian that this machine knows.
debian_archive() {
    # shellcheck disable=SC2016 # the name is apt's
    apt-get indextargets --format '$(SITE)' 'Origin: Debian' 'Label: Debian' | head -n 1
}

need_clean_systems() {
    [ "$(id -u)" = 0 ] || skip "only root can enter another system"
    command -v debootstrap >/dev/null || skip "debootstrap isn't installed"
    unshare --mount true 2>/dev/null || skip "mounts can't be kept apart here"
    [ -n "$(debian_archive)" ] || skip "no archive of Debian is known"
}

# fetch_base CODENAME FILE [PACKAGE...] - makes FILE, an archive of that release with the packages.
fetch_base() {
    local codename=$1 file=$2 new archive
    shift 2
    new=$(mktemp -d)
    archive=$(debian_archive)
    chmod 755 "$new" # it becomes the root of the system
    debootstrap --variant=minbase "$codename" "$new" "$archive" \
        && echo "deb $archive $codename main" >"$new/etc/apt/sources.list" \
        && cp /etc/resolv.conf /etc/hosts "$new/etc/" \
        && chroot "$new" apt-get update -qq \
        && DEBIAN_FRONTEND=noninteractive chroot "$new" apt-get install -y -qq --no-install-recommends "$@" \
        && chroot "$new" apt-get clean \
        && tar -C "$new" -cf "$file.new" . && mv "$file.new" "$file"
    local result=$?
    rm -rf --one-file-system "$new"
    return $result
}

# unpack_system CODENAME FOLDER [PACKAGE...] - puts that release with the packages into the folder.
unpack_system() {
    local codename=$1 folder=$2 name base
    shift 2
    name=$(printf '%s\n' "$codename" "$@" | md5sum | cut -c1-8)
    base=build/debian-$codename-$name.tar
    mkdir -p build "$folder"
    [ -e "$base" ] || fetch_base "$codename" "$base" "$@" || skip "the archive of Debian can't be reached"
    tar -C "$folder" -xf "$base"
    cp /etc/resolv.conf /etc/hosts "$folder/etc/"
}

# enter_system FOLDER COMMAND... - runs the command in the system, in a process space of its own, so that whatever
# it starts ends with it. Of this machine's environment it gets only the path to the archive. A folder
# FOLDER.packages, if it is there, keeps the packages that are installed inside.
enter_system() {
    local name inside=(PATH=/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin HOME=/root TERM=dumb)
    for name in http_proxy https_proxy no_proxy; do
        [ -z "${!name:-}" ] || inside+=("$name=${!name}")
    done
    # shellcheck disable=SC2016 # the inner shell expands it
    unshare --mount --pid --fork --kill-child bash -ec '
        mount -t proc proc "$1/proc"
        mount -t devpts devpts "$1/dev/pts"
        mount -t tmpfs tmpfs "$1/dev/shm"
        [ ! -d "$1.packages" ] || mount --bind "$1.packages" "$1/var/cache/apt/archives"
        exec chroot "$1" env -i "${@:2}"' bash "$1" "${inside[@]}" "${@:2}"
}
