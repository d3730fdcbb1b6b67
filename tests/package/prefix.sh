#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Installs the release build into OUT/prefix, which was moved there, and runs it.
#   prefix.sh OUT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
root=$(readlink -f "$here/../..")
out=$1

fail() { echo "prefix.sh: $*" >&2; exit 1; }

# A blank, because homes of people have some.
cmake --install "$root/build/release" --prefix "$out/first prefix" >"$out/install.log"
mv "$out/first prefix" "$out/prefix"

if grep -rlF -e "$root" -e 'first prefix' "$out/prefix"; then
    fail "these files name a folder of the build"
fi
find "$out/prefix" -type f \( -name '*.so*' -o -path '*/bin/*' \) | while read -r file; do
    path=$(readelf -d "$file" | sed -n 's/.*R\(UN\)\?PATH.*\[\(.*\)\]/\2/p')
    # shellcheck disable=SC2016 # the loader reads it
    case $path in
    '' | '$ORIGIN' | '$ORIGIN/'*) ;;
    *) fail "$file searches $path" ;;
    esac
    case $path in *:*) fail "$file searches $path" ;; esac
done
[ "$("$out/prefix/bin/halvora" --version)" = "Halvora $(sed -n 's/^project(Halvora VERSION \([^ ]*\).*/\1/p' \
    "$root/CMakeLists.txt")" ] || fail "another version"
"$here/login.sh" "$out/prefix/bin/halvora" "$out/home-prefix"
# People put links to programs into their own folders.
ln -s "$out/prefix/bin/halvora" "$out/halvora"
"$here/login.sh" "$out/halvora" "$out/home-link"
echo "The program runs from a prefix that was moved."
