#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Looks into the packages in OUT.
#   contents.sh OUT
set -euo pipefail
here=$(dirname "$(readlink -f "$0")")
out=$1
arch=$(dpkg-architecture -qDEB_HOST_MULTIARCH)

fail() { echo "contents.sh: $*" >&2; exit 1; }

package=$(echo "$out"/halvora_*.deb)
sdk=$(echo "$out"/halvora-dev_*.deb)
files() { dpkg-deb --fsys-tarfile "$1" | tar -t | grep -v '/$' | sed "s|^\./|/|; s|$arch|ARCH|" | LC_ALL=C sort; }

# Catalogues come and go with the languages.
diff -u "$here/halvora.list" <(files "$package" | grep -v '^/usr/share/halvora/translations/') ||
    fail "the package holds something else"
for catalogue in "$here"/../../translations/*.ts; do
    [ -e "$catalogue" ] || continue
    files "$package" | grep -qx "/usr/share/halvora/translations/$(basename "$catalogue" .ts).qm" ||
        fail "no catalogue made of $catalogue"
done
files "$sdk" | grep -qx /usr/include/halvora/coreplugininterface.h || fail "the SDK has no headers"
if files "$sdk" | grep -Ev '^/usr/(include/halvora/[a-z]+\.h|lib/ARCH/(cmake/HalvoraSdk/|halvora/lib[a-z-]+\.so$)|share/doc/halvora-dev/)'; then
    fail "this is none of the SDK's"
fi

for deb in "$package" "$sdk"; do
    [ "$(dpkg-deb -I "$deb" | grep -cE ' (pre|post)(inst|rm) ')" = 0 ] || fail "$deb runs scripts"
    dpkg-deb --fsys-tarfile "$deb" | tar -tv | awk '
        $2 != "root/root" { print; bad = 1 }
        /^d/ && $1 != "drwxr-xr-x" { print; bad = 1 }
        /^-/ && $1 != ($6 ~ /\/bin\// ? "-rwxr-xr-x" : "-rw-r--r--") { print; bad = 1 }
        END { exit bad }' || fail "wrong owners or modes in $deb"
    tree=$(mktemp -d)
    dpkg-deb -R "$deb" "$tree"
    (cd "$tree" && md5sum --quiet --strict -c DEBIAN/md5sums) || fail "wrong sums in $deb"
    find "$tree/usr" -type f -exec file {} + | grep 'ELF.*not stripped' && fail "not stripped in $deb"
    rm -rf "$tree"
done
for needed in libqt5sql5-sqlite libcurl4 libqt5widgets5 libqt5keychain1; do
    dpkg-deb -f "$package" Depends | grep -q "\b$needed\b" || fail "does not depend on $needed"
done
echo "The packages hold what they should."
