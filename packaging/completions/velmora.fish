# SPDX-FileCopyrightText: The Velmora developers
# SPDX-License-Identifier: GPL-3.0-or-later
# fish completion for velmora(1), velmora-cli(1) and velmora-tray(1): what their own help lists.

# The help of the command that the line has come to.
function __velmora_help
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    set -l help ($words[1] --help 2>/dev/null)
    for word in $words[2..]
        if string match -qr -- "^  "(string escape --style=regex -- $word)"  " $help
            $words[1] $word --help 2>/dev/null
            return
        end
    end
    printf '%s\n' $help
end

function __velmora_commands
    __velmora_help | string replace -rf '^  ([a-z][a-z0-9+-]*)  +(\S.*)' '$1\t$2'
end

function __velmora_options
    __velmora_help | string replace -rf '^ +(?:-\w, )*(--[a-z][a-z-]*)(?: \S+)?(?: +(.*))?$' '$1\t$2'
end

# What the value of the option before the cursor can be, by the help's word for it; fails where there is none.
function __velmora_values
    set -l words (commandline --tokenize --cut-at-cursor --current-process)
    string match -q -- '-*' $words[-1]; or return
    set -l value (__velmora_help | string replace -rf -- '^ +(?:-.*, )?'$words[-1]'(?:, --[a-z-]+)* (\S+).*' '$1')
    switch "$value"
        case ''
            return 1
        case '*|*'
            string split '|' $value
        case DISQUE
            printf '%s\n' cd cd-90 dvd dvd-dl bd bd-dl detect
        case ÉTAT
            printf '%s\n' vierge ouvert ferme plein
        case DOSSIER 'FICHIER.*' IMAGE
            __fish_complete_path (commandline --current-token)
        case '*'
            switch "$words[1] $words[-1]"
                case 'velmora-tray -r' 'velmora-tray --recorder'
                    __velmora_virtual
                case '* --recorder'
                    velmora-cli recorders --json 2>/dev/null | string replace -rf '^ *"number": (\d+).*' '$1'
            end
    end
    return 0
end

# The user's virtual recorders: each is a folder.
function __velmora_virtual
    set -q XDG_DATA_HOME; or set -l XDG_DATA_HOME ~/.local/share
    path basename $XDG_DATA_HOME/velmora/recorders/*/ 2>/dev/null
end

function __velmora_offer
    set -l token (commandline --current-token)
    set -l values
    if set values (__velmora_values)
        printf '%s\n' $values
    else if string match -q -- '-*' $token
        __velmora_options
    else
        __velmora_commands
        switch (string join -- ' ' (commandline --tokenize --cut-at-cursor --current-process))
            case 'velmora-tray delete'
                __velmora_virtual
            case 'velmora' 'velmora-tray insert*' 'velmora-cli burn*' 'velmora-cli image*' 'velmora-cli check*'
                __fish_complete_path $token
        end
    end
end

for program in velmora velmora-cli velmora-tray
    complete -c $program -f -a '(__velmora_offer)'
end
