#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Builds the program, starts the loopback account service and the client, and logs in with the demo account.
# Without a display it saves a picture of the main window and ends. Options after -- go to the client.
#   scripts/run.sh [--picture file] [-- option...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

picture=
while [ $# -gt 0 ]; do
    case $1 in
    --picture)
        picture=$(readlink -m "${2:?--picture needs a file}")
        mkdir -p "$(dirname "$picture")"
        shift 2
        ;;
    --)
        shift
        break
        ;;
    *)
        sed -n '4,6s/^# //p' "$0" >&2
        exit 2
        ;;
    esac
done

scripts/packages.sh run
cmake --preset release >/dev/null
cmake --build --preset release --target halvora pinegate corvia-service

build=$PWD/build/release
work=$(mktemp -d)
pids=()
cleanup() {
    [ ${#pids[@]} -eq 0 ] || kill "${pids[@]}" 2>/dev/null || true
    wait 2>/dev/null || true
    rm -rf "$work"
}
trap cleanup EXIT

"$build/service/corvia-service" --ready-file "$work/ready" >"$work/service.log" 2>&1 &
pids+=($!)
for _ in $(seq 100); do
    [ -f "$work/ready" ] && break
    kill -0 "${pids[0]}" 2>/dev/null || break
    sleep 0.1
done
[ -f "$work/ready" ] || {
    cat "$work/service.log" >&2
    exit 1
}
# shellcheck source=/dev/null
. "$work/ready"

if [ -z "${DISPLAY:-}${WAYLAND_DISPLAY:-}" ]; then
    [ -n "$picture" ] || picture=$PWD/build/halvora.png
    exec 3< <(exec Xvfb -displayfd 1 -noreset -screen 0 1400x1000x24 -nolisten tcp 2>/dev/null)
    pids+=($!)
    read -r number <&3
    export DISPLAY=:$number
fi

# A home and a keyring-less session of its own: the demo leaves nothing in the user's folders.
mkdir -m 700 "$work/home"
export XAUTHORITY=${XAUTHORITY:-$HOME/.Xauthority} HOME=$work/home DBUS_SESSION_BUS_ADDRESS=disabled:
unset XDG_CONFIG_HOME XDG_DATA_HOME XDG_CACHE_HOME
arguments=(--account-service "$ACCOUNT_SERVICE" --account-ca "$ACCOUNT_CA" --profile "$work/profile"
    --plugins "$build/plugins" --user demo --password-fd 4)
[ -z "$picture" ] || arguments+=(--screenshot "$picture")
"$build/halvora" "${arguments[@]}" "$@" 4<<<pinegate
[ -z "$picture" ] || echo "The picture of the main window: $picture"
