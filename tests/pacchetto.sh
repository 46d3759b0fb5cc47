#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Varbel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# pacchetto.sh <build folder> <source folder>: makes the Debian package, has Debian's own tools look at it, unpacks it
# and opens a dictionary with the desktop's opener, as two users where it may, with the system's folder read-only.
set -eu
costruito=$1
sorgenti=$2
cartella=$(mktemp -d)
schermo=
finisci()
{
    [ -z "$schermo" ] || kill "$schermo" 2>/dev/null || true
    chmod -R u+w "$cartella"
    rm -rf "$cartella"
}
trap finisci EXIT
trap 'exit 130' INT TERM HUP
guasto()
{
    echo "FAIL: $*" >&2
    exit 1
}
# verifica <what is wrong otherwise> <command>...
verifica()
{
    cosa=$1
    shift
    "$@" >"$cartella/uscita" 2>&1 || {
        cat "$cartella/uscita" >&2
        guasto "$cosa"
    }
}

(cd "$costruito" && verifica "the package is not made" cpack -G DEB -B "$cartella/deb")
deb=$(echo "$cartella"/deb/*.deb)
verifica "lintian" lintian --fail-on error "$deb"
dpkg-deb -x "$deb" "$cartella/radice"
usr=$cartella/radice/usr
applicazione=org.varbel.Varbel
verifica "the desktop entry" desktop-file-validate "$usr/share/applications/$applicazione.desktop"
verifica "the metainfo" appstreamcli validate --no-net "$usr/share/metainfo/$applicazione.metainfo.xml"
verifica "the tree" appstreamcli validate-tree --no-net "$cartella/radice"
for pagina in "$usr"/share/man/man1/varbel.1.gz "$usr"/share/man/it/man1/varbel.1.gz; do
    LC_ALL=C.UTF-8 MANROFFSEQ='' MANWIDTH=80 man --warnings -E UTF-8 -l -Tutf8 -Z "$pagina" >/dev/null 2>"$cartella/uscita"
    [ ! -s "$cartella/uscita" ] || guasto "$pagina: $(cat "$cartella/uscita")"
done
verifica "the completion" bash -n "$usr/share/bash-completion/completions/varbel"
versione=$("$usr/bin/varbel" --version)
grep -q "^## ${versione#Varbel } - " "$sorgenti/CHANGELOG.md" || guasto "$versione is not in CHANGELOG.md"
for lato in 16 48 256; do
    for icona in apps/$applicazione mimetypes/application-x-varbel-dictionary; do
        [ -s "$usr/share/icons/hicolor/${lato}x$lato/$icona.png" ] || guasto "no $icona of $lato dots"
    done
done

# As an installation leaves the system.
verifica "the types" update-mime-database "$usr/share/mime"
verifica "the applications" update-desktop-database "$usr/share/applications"
XDG_DATA_DIRS=$usr/share:/usr/local/share:/usr/share
export XDG_DATA_DIRS
printf '2\nparola/SM\nword/SM\n' >"$cartella/altrui.dic"
tipo()
{
    gio info -a standard::content-type "$1" | sed -n 's/.*standard::content-type: //p'
}
for file in "$usr"/share/varbel/dizionari/*.dic; do
    [ "$(tipo "$file")" = application/x-varbel-dictionary ] || guasto "$file is of type $(tipo "$file")"
done
[ "$(tipo "$cartella/altrui.dic")" = text/plain ] || guasto "another program's word list is $(tipo "$cartella/altrui.dic")"

chmod 755 "$cartella"
chmod -R a-w "$cartella/radice"
impronte()
{
    (cd "$cartella/radice" && find . -type f -exec sha1sum {} + | sort)
}
impronte >"$cartella/prima"
for numero in $(seq 90 120); do
    [ ! -e "/tmp/.X11-unix/X$numero" ] || continue
    Xvfb ":$numero" -screen 0 1280x900x24 -nolisten tcp >/dev/null 2>&1 &
    schermo=$!
    for _ in $(seq 40); do
        [ ! -S "/tmp/.X11-unix/X$numero" ] || break 2
        kill -0 "$schermo" 2>/dev/null || break
        sleep 0.1
    done
    kill "$schermo" 2>/dev/null || true
    schermo=
done
[ -n "$schermo" ] || guasto "no X server"

# apre <user's number or nothing>: a user of his own opens a dictionary of his from the file manager.
apre()
{
    casa=$cartella/casa$1
    mkdir -p "$casa/tmp"
    cp "$usr/share/varbel/dizionari/Greco-Italiano.dic" "$casa/le mie parole.dic"
    cp "$usr/share/varbel/dizionari/Greco-Italiano.ini" "$casa/le mie parole.ini"
    chmod u+w "$casa"/*.dic "$casa"/*.ini
    come=
    if [ -n "$1" ]; then
        chown -R "$1:$1" "$casa"
        come="setpriv --reuid=$1 --regid=$1 --clear-groups"
    fi
    # shellcheck disable=SC2086 # a command and its options
    (cd "$casa" && $come env -i HOME="$casa" TMPDIR="$casa/tmp" DISPLAY=":$numero" PATH="$usr/bin:/usr/bin:/bin" \
        LC_ALL=C.UTF-8 XDG_DATA_DIRS="$XDG_DATA_DIRS" QT_QPA_PLATFORM=xcb \
        gio open "$casa/le mie parole.dic")
    for _ in $(seq 100); do
        processo=$(pgrep -f "^varbel $casa/" || true)
        # The lock beside the recovery copy says that the dictionary is open.
        if [ -n "$processo" ] && ls "$casa"/.local/state/varbel/*.lock >/dev/null 2>&1 &&
            xwininfo -root -tree -display ":$numero" | grep -q '"Varbel"'; then
            break
        fi
        sleep 0.1
    done
    ls "$casa"/.local/state/varbel/le\ mie\ parole.dic-*.lock >/dev/null || guasto "the dictionary was not opened"
    for file in varbel.ini Trffc10a.ico Intl_no.bmp; do
        [ -w "$casa/.local/share/varbel/$file" ] || guasto "no $file of the user's own"
        [ -z "$1" ] || [ "$(stat -c %u:%a "$casa/.local/share/varbel/$file")" = "$1:600" ] || guasto "$file is not his alone"
    done
    kill "$processo"
    while kill -0 "$processo" 2>/dev/null; do sleep 0.1; done
}
if [ "$(id -u)" -eq 0 ]; then
    apre 50001
    apre 50002
else
    echo "Not root: tried as one user only."
    apre ''
fi
impronte >"$cartella/dopo"
cmp -s "$cartella/prima" "$cartella/dopo" || guasto "the system's folder was written to"
echo "The package is sound: $(basename "$deb"), $(($(stat -c %s "$deb") / 1024)) KiB"
