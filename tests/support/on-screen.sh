#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Runs a test on a screen of its own, with a window manager and a pointer that xdotool moves. Wants a fresh home.
for program in Xvfb openbox xdotool; do
    command -v "$program" >/dev/null || {
        echo "$program is missing; scripts/packages.sh test installs it." >&2
        exit 99
    }
done

# The server chooses a display that nobody has, so runs beside each other have one each. It ends with this script,
# however that ends, and does not begin anew whenever it has no client for a moment.
setpriv --pdeathsig TERM Xvfb -displayfd 3 -screen 0 2600x1800x24 -dpi 96 -nolisten tcp -noreset \
    3>"$HOME/display" 2>"$HOME/xvfb.log" &
server=$!
manager=
leave() {
    kill $manager $server 2>/dev/null
    wait 2>/dev/null
}
trap leave EXIT
trap 'exit 99' HUP INT TERM

# Tries a command for ten seconds.
await() {
    for _ in $(seq 200); do
        "$@" >/dev/null 2>&1 && return
        sleep 0.05
    done
    echo "There is no screen: $* kept failing." >&2
    cat "$HOME/xvfb.log" >&2
    exit 99
}
await test -s "$HOME/display"
DISPLAY=:$(cat "$HOME/display")
export DISPLAY QT_QPA_PLATFORM=xcb
setpriv --pdeathsig TERM openbox >"$HOME/openbox.log" 2>&1 &
manager=$!
await xdotool get_num_desktops # answers as soon as the window manager is there
# The other tests look for leaks. Here the user would have to wait too long at the end, and the same objects come
# and go.
export ASAN_OPTIONS="${ASAN_OPTIONS:+$ASAN_OPTIONS:}detect_leaks=0:fast_unwind_on_malloc=1"
"$@"
