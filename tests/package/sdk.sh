#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Builds against the SDK in OUT/prefix: every public header alone, and the plug-in from a copy of its folders,
# which then takes the place of the installed one.
#   sdk.sh OUT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
root=$(readlink -f "$here/../..")
out=$1
options=(-G Ninja "-DCMAKE_PREFIX_PATH=$out/prefix" "-DCMAKE_CXX_FLAGS=-Wall -Wextra -Wpedantic -Wshadow -Werror")

run() { # log, command...
    local log=$out/$1.log
    shift
    "$@" >>"$log" 2>&1 || {
        cat "$log" >&2
        exit 1
    }
}

run headers cmake -S "$here/headers" -B "$out/headers" "${options[@]}"
run headers cmake --build "$out/headers"
echo "Every public header stands alone: $(find "$out/headers/alone" -name '*.cpp' | wc -l)"

mkdir "$out/plugin"
for folder in plugin connector requests bookmarks panels resources translations; do
    [ ! -d "$root/$folder" ] || cp -r "$root/$folder" "$out/plugin/"
done
plugin=$(echo "$out"/prefix/lib*/*/halvora/plugins/pinegate.so)
rm "$plugin"
if "$here/login.sh" "$out/prefix/bin/halvora" "$out/home-bare" 2>/dev/null; then
    echo "sdk.sh: the program found a plug-in that is none of this prefix" >&2
    exit 1
fi
run plugin cmake -S "$out/plugin/plugin" -B "$out/plugin/build" "${options[@]}"
run plugin cmake --build "$out/plugin/build"
run plugin cmake --install "$out/plugin/build"
[ -f "$plugin" ]
"$here/login.sh" "$out/prefix/bin/halvora" "$out/home-sdk"
echo "The plug-in that was built against the SDK answers."
