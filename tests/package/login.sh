#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Starts the release build's account service, and lets a program log in to it without a display: it has to find
# its plug-in itself.
#   login.sh PROGRAM HOME    the folder HOME is made
set -euo pipefail
service=$(dirname "$(readlink -f "$0")")/../../build/release/service/corvia-service
program=$1
mkdir -p "$2"
home=$(readlink -f "$2")

"$service" --ready-file "$home/ready" >"$home/service.log" 2>&1 &
pid=$!
trap 'kill $pid 2>/dev/null || true; wait' EXIT
for _ in $(seq 300); do
    [ ! -f "$home/ready" ] || break
    kill -0 $pid
    sleep 0.1
done
# shellcheck source=/dev/null
. "$home/ready"

mkdir -m 700 "$home/run"
export HOME=$home XDG_RUNTIME_DIR=$home/run QT_QPA_PLATFORM=offscreen DBUS_SESSION_BUS_ADDRESS=disabled: LC_ALL=C.UTF-8
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME XDG_DATA_DIRS LD_LIBRARY_PATH QT_PLUGIN_PATH
timeout 120 "$program" --account-service "$ACCOUNT_SERVICE" --account-ca "$ACCOUNT_CA" --profile "$home/profile" \
    --user demo --password-fd 4 --screenshot "$home/picture.png" 4<<<pinegate >"$home/program.log" 2>&1 || {
    echo "$program could not log in:" >&2
    cat "$home/program.log" >&2
    exit 1
}
[ -s "$home/picture.png" ]
