# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash

# install_packages LIST... - installs the Debian packages that the lists name, one a line, and that are not
# there yet. Silent and quick when nothing is missing. On other systems than Debian it does nothing.
install_packages() {
    command -v dpkg-query >/dev/null || return 0
    local wanted missing as_root=() attempt log
    mapfile -t wanted < <(sort -u -- "$@")
    mapfile -t missing < <(comm -23 <(printf '%s\n' "${wanted[@]}") \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${wanted[@]}" 2>/dev/null | sed -n 's/^installed //p' | sort -u))
    [ ${#missing[@]} -gt 0 ] || return 0

    if [ "$(id -u)" != 0 ]; then
        if ! command -v sudo >/dev/null; then
            echo "Paquets Debian manquants, à installer par l'administrateur : ${missing[*]}" >&2
            return 1
        fi
        as_root=(sudo)
    fi
    echo "Installation des paquets Debian manquants : ${missing[*]}" >&2
    log=$(mktemp)
    for attempt in known-packages fresh-lists; do
        [ "$attempt" = known-packages ] || "${as_root[@]}" apt-get update -qq >>"$log" 2>&1
        if "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive \
            apt-get install -y -qq --no-install-recommends "${missing[@]}" </dev/null >>"$log" 2>&1; then
            rm -f "$log"
            return 0
        fi
    done
    tail -n 5 "$log" >&2
    rm -f "$log"
    echo "L'installation des paquets a échoué." >&2
    return 1
}
