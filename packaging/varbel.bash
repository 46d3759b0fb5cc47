# SPDX-FileCopyrightText: 2026 The Varbel developers
# SPDX-License-Identifier: GPL-3.0-or-later
_varbel()
{
    local parola=${COMP_WORDS[COMP_CWORD]} riga
    COMPREPLY=()
    if [[ $parola == -* ]]; then
        mapfile -t COMPREPLY < <(compgen -W "--help --version" -- "$parola")
        return
    fi
    compopt -o filenames 2>/dev/null
    while IFS= read -r riga; do
        [[ -d $riga || ${riga,,} == *.dic ]] && COMPREPLY+=("$riga")
    done < <(compgen -f -- "$parola")
}
complete -F _varbel varbel
