#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Runs a test with a home folder of its own, without a display, a bus, a keyring or a proxy, and removes the folder.
HOME=$(mktemp -d "${TMPDIR:-/tmp}/halvora-test.XXXXXX") || exit 99
# What a test started on its own, and nobody waits for, may still be writing there.
leave() {
    for _ in 1 2 3 4 5; do
        rm -rf "$HOME" 2>/dev/null && return
        sleep 0.2
    done
}
trap leave EXIT
mkdir -m 700 "$HOME/run"
export HOME XDG_RUNTIME_DIR="$HOME/run" QT_QPA_PLATFORM="${QT_QPA_PLATFORM:-offscreen}"
export DBUS_SESSION_BUS_ADDRESS=disabled: DBUS_SYSTEM_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
unset DISPLAY WAYLAND_DISPLAY GNOME_KEYRING_CONTROL SSH_AUTH_SOCK XDG_CURRENT_DESKTOP DESKTOP_SESSION
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_CONFIG_DIRS http_proxy https_proxy all_proxy HTTPS_PROXY ALL_PROXY
"$@"
