#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Varbel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# pacchetto.sh <cpack> <build folder>: makes the package, checks what it holds, and has users who cannot write to it open
# dictionaries by the desktop's own opener, on an X server of its own.
set -eu
cpack=$1
costruito=$2
sorgenti=$(cd "$(dirname "$0")/.." && pwd)
cartella=$(mktemp -d)
radice=$cartella/radice
dati=$radice/usr/share
servitore=
gestore=
finisci()
{
    [ -z "$gestore" ] || kill "$gestore" 2>/dev/null || true
    [ -z "$servitore" ] || kill "$servitore" 2>/dev/null || true
    chmod -R u+w "$cartella"
    rm -rf "$cartella"
}
trap finisci EXIT
trap 'exit 130' INT TERM HUP
manca()
{
    echo "FAIL: $*" >&2
    exit 1
}
# attendi <command>...: until it succeeds, half a minute at most.
attendi()
{
    for _ in $(seq 300); do
        ! "$@" || return 0
        sleep 0.1
    done
    manca "waited in vain: $*"
}

echo "- the package"
(cd "$costruito" && "$cpack" -G DEB -B "$cartella/deb") >"$cartella/cpack.log" || manca "$(cat "$cartella/cpack.log")"
set -- "$cartella"/deb/*.deb
lintian --allow-root --fail-on error,warning "$1"
chmod 755 "$cartella"
dpkg-deb -R "$1" "$radice"
[ "$(ls "$radice/DEBIAN")" = "control
md5sums" ] || manca "maintainer scripts, which could touch users' files"
rm -r "$radice/DEBIAN"
versione=$("$radice/usr/bin/varbel" --version)
case "$(dpkg-deb -f "$1" Version)" in "${versione#Varbel }"-*) ;; *) manca "the package's version is not $versione" ;; esac

echo "- desktop entry, metainfo, manual pages, icons"
desktop-file-validate "$dati"/applications/*.desktop
appstreamcli validate --no-net "$dati"/metainfo/*.xml
appstreamcli validate-tree --no-net "$radice"
for immagine in $(sed -n 's:.*<image.*/\(docs/[^<]*\)<.*:\1:p' "$dati"/metainfo/*.xml); do
    [ -f "$sorgenti/$immagine" ] || manca "no screenshot $immagine"
done
for pagina in "$dati"/man/man1/*.gz "$dati"/man/*/man1/*.gz; do
    avvisi=$(LC_ALL=C.UTF-8 MANWIDTH=80 man --warnings -E UTF-8 -l "$pagina" 2>&1 >/dev/null)
    [ -z "$avvisi" ] || manca "$pagina: $avvisi"
done

for lato in 16 22 24 32 48 64 128 256 512; do
    for icona in apps/alt.varbel.varbel mimetypes/application-x-varbel-dictionary; do
        [ -s "$dati/icons/hicolor/${lato}x$lato/$icona.png" ] || manca "no $icona of $lato dots"
    done
done

echo "- types"
export XDG_DATA_DIRS="$dati:/usr/share"
update-mime-database "$dati/mime"
update-desktop-database "$dati/applications"
altri=$cartella/altri
mkdir "$altri"
printf '2\ncasa/S\nposta@esempio.it\n' >"$altri/ortografia.dic"
printf 'OOoUserDict1\nlang: it\ntype: positive\n---\ncasa\n' >"$altri/utente.dic"
printf '\377\376c\0a\0s\0a\0\r\0\n\0' >"$altri/parole.dic"
: >"$altri/vuoto.dic"
head -c 4096 /bin/sh >"$altri/binario.dic"
for file in "$dati"/varbel/dizionari/*.dic "$sorgenti"/tests/fixtures/normale*.dic \
    "$sorgenti/tests/fixtures/marche-ordine-byte.dic" "$altri"/*; do
    genere=$(gio info -a standard::content-type "$file" | sed -n 's/.*content-type: //p')
    case "$file $genere" in
    "$altri"/*" application/x-varbel-dictionary") manca "$file taken for a Varbel dictionary" ;;
    "$altri"/*" "* | *" application/x-varbel-dictionary") ;;
    *) manca "$file is a $genere" ;;
    esac
done

echo "- completion"
# shellcheck disable=SC2016 # expanded by the shell that completes
(cd "$altri" && bash -c '. "$1"; COMP_CWORD=1; COMP_WORDS=(varbel o); _varbel
    [ "${COMPREPLY[*]}" = ortografia.dic ] && COMP_WORDS=(varbel --v) && _varbel && [ "${COMPREPLY[*]}" = --version ]' - "$dati/bash-completion/completions/varbel") ||
    manca "the completion"

echo "- users"
chmod -R a-w "$radice"
elenco() { find "$radice" -printf '%P %m %s %T@\n' | sort; }
elenco >"$cartella/prima"
utenti="61001 61002"
if [ "$(id -u)" -ne 0 ]; then
    utenti=$(id -u)
    echo "  SKIPPED: the second user, since only root can be two"
fi
Xvfb -displayfd 3 -ac -noreset -screen 0 1280x900x24 -nolisten tcp 3>"$cartella/schermo" >/dev/null 2>&1 &
servitore=$!
attendi [ -s "$cartella/schermo" ]
DISPLAY=:$(cat "$cartella/schermo")
export DISPLAY
# It says that it manages windows before it does: one that came between would never be shown.
openbox --sm-disable --startup "touch $cartella/gestore" >/dev/null 2>&1 &
gestore=$!
attendi [ -e "$cartella/gestore" ]

finestre() { test "$(xdotool search --onlyvisible --name '^Varbel$' 2>/dev/null | wc -l)" "$@"; }
quanti=0
for utente in $utenti; do
    casa=$cartella/$utente
    mkdir -m 700 "$casa"
    cp "$dati"/varbel/dizionari/Greco-Italiano.dic "$casa/le parole di $utente.dic"
    cp "$dati"/varbel/dizionari/Greco-Italiano.ini "$casa/le parole di $utente.ini"
    chmod u+w "$casa"/*
    come=
    if [ "$(id -u)" -eq 0 ]; then
        chown -R "$utente:$utente" "$casa"
        come="setpriv --reuid=$utente --regid=$utente --clear-groups"
    fi
    # shellcheck disable=SC2086 # a command and its arguments
    (cd "$casa" && $come env -i HOME="$casa" PATH="$radice/usr/bin:$PATH" LC_ALL=C.UTF-8 DISPLAY="$DISPLAY" \
        XDG_DATA_DIRS="$XDG_DATA_DIRS" DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent QT_LOGGING_RULES='*=false' \
        gio open "$casa/le parole di $utente.dic") || manca "the opener"
    quanti=$((quanti + 1))
    attendi finestre -eq "$quanti"
done
# Of two windows the one in front is closed first, each by its user's own way out.
chiudi() { finestre -eq 0 || { xdotool key alt+F4; sleep 0.2; finestre -eq 0; }; }
attendi chiudi

for utente in $utenti; do
    casa=$cartella/$utente
    [ "$(ls "$casa/.local/share/varbel")" = "Intl_no.bmp
Trffc10a.ico
varbel.ini" ] || manca "the folder of $utente: $(ls -R "$casa")"
    recente=$(sed -n '/^\[Recenti\]/{n;p}' "$casa/.local/share/varbel/varbel.ini" | tr -d '\r')
    [ "$recente" = "$casa/le parole di $utente.dic" ] || manca "$utente opened '$recente'"
done
[ "$(cat "$cartella"/*/.local/share/varbel/varbel.ini | grep -c 'le parole di')" -eq "$quanti" ] ||
    manca "a user's settings hold another's"
elenco | cmp - "$cartella/prima" || manca "the system's folder was written to"
