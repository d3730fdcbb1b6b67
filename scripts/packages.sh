#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Installs what the other scripts need, if it is missing: packages.sh run | test | lint
set -euo pipefail

run="cmake ninja-build g++ pkg-config qtbase5-dev libqt5svg5-dev qttools5-dev qttools5-dev-tools
     qttranslations5-l10n libqt5sql5-sqlite libsqlite3-dev libcurl4-openssl-dev libcpp-httplib-dev libssl-dev libxml2-dev
     qtkeychain-qt5-dev xvfb fonts-dejavu-core xdg-utils shared-mime-info"
test="inn2 openssl openbox xdotool desktop-file-utils appstream libfile-mimeinfo-perl
      libxml2-utils librsvg2-bin binutils procps man-db dpkg-dev file dbus
      gnome-keyring libsecret-1-0 libsecret-tools"
lint="git clang libclang-rt-14-dev clang-tidy clazy clang-format"

wanted=$run
case ${1:-run} in
run) ;;
test) wanted="$run $test" ;;
lint) wanted="$run $test $lint" ;;
*)
    echo "usage: packages.sh run|test|lint" >&2
    exit 2
    ;;
esac

missing=()
for package in $wanted; do
    state=$(dpkg-query -W -f '${db:Status-Status}' "$package" 2>/dev/null || true)
    [ "$state" = installed ] || missing+=("$package")
done
[ ${#missing[@]} -gt 0 ] || exit 0

root=()
if [ "$(id -u)" != 0 ]; then
    command -v sudo >/dev/null || {
        echo "Please install as root: apt-get install ${missing[*]}" >&2
        exit 1
    }
    root=(sudo)
fi
echo "Installing: ${missing[*]}"
"${root[@]}" apt-get update -qq
here=$(dirname "$(readlink -f "$0")")
# The news server's package fails to configure on a machine without a domain; its own script knows the way.
rest=()
for package in "${missing[@]}"; do
    if [ "$package" = inn2 ]; then
        "${root[@]}" "$here/../tests/support/inn.sh" install
    else
        rest+=("$package")
    fi
done
if [ ${#rest[@]} -gt 0 ]; then
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${rest[@]}" >/dev/null
fi
