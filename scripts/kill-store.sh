#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Kills a program that changes bookmarks, again and again, and looks at what it left: scripts/kill-store.sh [rounds]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

export HALVORA_KILL_ROUNDS=${1:-1000}
export QTEST_FUNCTION_TIMEOUT=86400000 # a day, in milliseconds; the usual limit is for the usual rounds
scripts/packages.sh test
cmake --preset release >/dev/null
cmake --build --preset release --target tst_killedwriter >/dev/null
time tests/support/in-fresh-home.sh build/release/tests/bookmarks/tst_killedwriter -maxwarnings 0
