#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Installs what is missing, builds everything and runs every test: scripts/test.sh [ctest option...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/packages.sh test
werror=OFF
[ -z "${CI:-}" ] || werror=ON
cmake --preset release -DHALVORA_WERROR=$werror >/dev/null
cmake --build --preset release
# Most of the tests wait more than they work.
ctest --preset release --no-tests=error -j $((2 * $(nproc))) "$@"
