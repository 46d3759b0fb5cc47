# SPDX-FileCopyrightText: 2026 The Varbel developers
# SPDX-License-Identifier: GPL-3.0-or-later
# Sourced by the commands of the project's root.

# What every build needs, and what the program loads at run time.
PACCHETTI="g++ cmake ninja-build qt6-base-dev libx11-dev libxcb-xkb-dev libqt6svg6 qt6-translations-l10n
    fonts-dejavu-core x11-xkb-utils"
# What the tests need beside that: an X server with a window manager, a session bus, a print server, readers of PDF.
# shellcheck disable=SC2034 # used by who sources this
PACCHETTI_TEST="xvfb openbox xdotool x11-xserver-utils libxcb-xtest0-dev dbus-daemon
    cups-daemon cups-client cups-filters poppler-utils"
# What the package needs, and what looks at it.
# shellcheck disable=SC2034 # used by who sources this
PACCHETTI_PACCHETTO="dpkg-dev file librsvg2-bin"
# shellcheck disable=SC2034 # used by who sources this
PACCHETTI_CONTROLLO="appstream desktop-file-utils libglib2.0-bin lintian man-db shared-mime-info"
# What the fuzz targets need: a compiler that makes them, and the names of functions in what it reports.
# shellcheck disable=SC2034 # used by who sources this
PACCHETTI_FUZZ="clang libclang-rt-14-dev llvm"

# installa <package>...: installs those that are missing, with apt; nothing when all are there.
installa()
{
    mancanti=
    for pacchetto in "$@"; do
        dpkg-query -W -f='${Status}' "$pacchetto" 2>/dev/null | grep -q 'ok installed' || mancanti="$mancanti $pacchetto"
    done
    [ -n "$mancanti" ] || return 0
    command -v apt-get >/dev/null || { echo "Install first:$mancanti" >&2; return 1; }
    radice=
    [ "$(id -u)" -eq 0 ] || radice=sudo
    echo "Installing:$mancanti"
    $radice apt-get update -qq || return 1
    # shellcheck disable=SC2086 # one word a package
    $radice env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends $mancanti >/dev/null
}
