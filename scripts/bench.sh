#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Builds what is shipped and prints the figures of every benchmark.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/packages.sh test
cmake --preset release >/dev/null
programs=(bench_start bench_bookmarkstart bench_login bench_bookmarkstore bench_bookmarklookup bench_bookmarkspanel
          bench_messagespanel bench_newslist bench_newsgroupfilter bench_replies)
cmake --build --preset release --target "${programs[@]}" >/dev/null
for program in "${programs[@]}"; do
    echo "== $program"
    tests/support/in-fresh-home.sh "build/release/benchmarks/$program" 2>/dev/null
done
