#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Installs the packages in OUT on this very system, runs the program, and removes them. Nothing may be left.
#   installed.sh OUT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
out=$1

fail() { echo "installed.sh: $*" >&2; exit 1; }

root=()
[ "$(id -u)" = 0 ] || root=(sudo)
for name in halvora halvora-dev; do
    [ "$(dpkg-query -W -f '${db:Status-Status}' $name 2>/dev/null || echo none)" = none ] ||
        fail "$name is installed here; it would be removed"
done

everything() { "${root[@]}" find /etc /opt /usr /var/lib/dpkg/info -xdev | LC_ALL=C sort; }
remove() { "${root[@]}" dpkg --purge halvora-dev halvora >>"$out/dpkg.log" 2>&1; }

everything >"$out/before"
trap remove EXIT
# Some systems are set up to leave out documents.
"${root[@]}" dpkg --path-include '/usr/share/*' -i "$out"/halvora_*.deb "$out"/halvora-dev_*.deb \
    >"$out/dpkg.log" 2>&1 || {
    cat "$out/dpkg.log" >&2
    fail "could not be installed"
}

version=$(dpkg-query -W -f '${Version}' halvora)
[ "$(cd / && halvora --version)" = "Halvora ${version%-*}" ] || fail "not the version $version"
man -w halvora >/dev/null || fail "no manual page"
"$here/login.sh" /usr/bin/halvora "$out/home-installed"
opener=$(HOME=$out/home-installed xdg-mime query default x-scheme-handler/pinegate)
[ "$opener" = org.halvora.Halvora.desktop ] || fail "links are opened by \"$opener\""
# The entry for all users offers everything; one of the user's own would only hide it.
[ ! -e "$out/home-installed/.local/share/applications" ] || fail "the user got an entry of their own"
cmake -S "$out/plugin/plugin" -B "$out/plugin/installed" -G Ninja >"$out/installed.log" 2>&1 ||
    fail "the SDK is not found: $(cat "$out/installed.log")"

remove
trap - EXIT
everything >"$out/after"
diff -u "$out/before" "$out/after" || fail "this was not there before, or is gone"
echo "The packages install, run and leave nothing."
