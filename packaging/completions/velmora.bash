# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# shellcheck shell=bash
# bash completion for velmora(1), velmora-cli(1) and velmora-tray(1): what their own help lists.

_velmora()
{
    local cur prev words cword
    _init_completion || return

    local command='' help word
    help=$("${words[0]}" --help 2>/dev/null)
    for word in "${words[@]:1:cword-1}"; do
        if [[ $help == *$'\n'"  $word  "* ]]; then
            command=$word
            help=$("${words[0]}" "$word" --help 2>/dev/null)
            break
        fi
    done

    _velmora_values && return
    if [[ $cur == -* ]]; then
        _velmora_offer "$(sed -nE 's/^ +(-[a-zN], )*(--[a-z][a-z-]*).*/\2/p' <<<"$help")"
        return
    fi
    case "${words[0]##*/} $command" in
        'velmora-tray delete') _velmora_offer "$(_velmora_virtual)" ;;
        'velmora ' | 'velmora-cli image' | 'velmora-cli burn') _filedir -d ;;
        'velmora-cli burn-iso' | 'velmora-cli check') _filedir iso ;;
        'velmora-tray insert') _filedir ;;
    esac
    _velmora_offer "$(sed -nE 's/^  ([a-z][a-z0-9+-]*)  +[^ ].*/\1/p' <<<"$help")"
} && complete -F _velmora velmora velmora-cli velmora-tray

# Offers what the value of the option before the cursor can be, by the help's word for it; fails where there is none.
_velmora_values()
{
    [[ $prev == -* ]] || return
    local value
    value=$(sed -nE "s/^ +(-.*, )?$prev(, --[a-z-]+)* ([^ ]+).*/\3/p" <<<"$help")
    case "$value" in
        '') return 1 ;;
        *'|'*) _velmora_offer "${value//|/$'\n'}" ;;
        DISQUE) _velmora_offer $'cd\ncd-90\ndvd\ndvd-dl\nbd\nbd-dl\ndetect' ;;
        ÉTAT) _velmora_offer $'vierge\nouvert\nferme\nplein' ;;
        DOSSIER) _filedir -d ;;
        FICHIER.*) _filedir "${value#*.}" ;;
        IMAGE) _filedir ;;
        *)
            case "${words[0]##*/} $prev" in
                'velmora-tray -r' | 'velmora-tray --recorder')
                    _velmora_offer "$(_velmora_virtual)"
                    compopt -o filenames
                    ;;
                *' --recorder')
                    _velmora_offer "$(velmora-cli recorders --json 2>/dev/null | sed -n 's/^ *"number": \([0-9]*\).*/\1/p')"
                    ;;
            esac
            ;;
    esac
}

# _velmora_offer LINES - adds those that go on as the word at the cursor does.
_velmora_offer()
{
    local IFS=$'\n'
    mapfile -t -O "${#COMPREPLY[@]}" COMPREPLY < <(compgen -W "$1" -- "$cur")
}

# The user's virtual recorders, one a line: each is a folder.
_velmora_virtual()
{
    local folder=${XDG_DATA_HOME:-$HOME/.local/share}/velmora/recorders
    [[ -d $folder ]] && ls -1 -- "$folder"
}
