#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Makes the Debian packages in build/package from the release build, after it has tried what packagers and
# builders of plug-ins do: the installed program in a prefix that was moved, and the plug-in against its SDK.
#   scripts/package.sh            leaves the system as it is
#   scripts/package.sh --install  also installs the packages, runs the program and removes them; so does CI
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

install=${CI:-}
case ${1-} in
'') ;;
--install) install=yes ;;
*)
    sed -n '4,7s/^# \{0,1\}//p' "$0" >&2
    exit 2
    ;;
esac

scripts/packages.sh test
cmake --preset release >/dev/null
cmake --build --preset release

out=$PWD/build/package
rm -rf "$out"
mkdir -p "$out"
tests/package/prefix.sh "$out"
tests/package/sdk.sh "$out"

# The time of the newest entry of the changelog, so that the same sources make the same packages.
SOURCE_DATE_EPOCH=$(dpkg-parsechangelog -l data/debian/changelog -S Timestamp)
export SOURCE_DATE_EPOCH
(cd build/release && cpack -B "$out/cpack" >"$out/cpack.log" 2>&1) || {
    cat "$out/cpack.log" >&2
    exit 1
}
mv "$out"/cpack/*.deb "$out"
rm -rf "$out/cpack"
tests/package/contents.sh "$out"
[ -z "$install" ] || tests/package/installed.sh "$out"
ls -l "$out"/*.deb
