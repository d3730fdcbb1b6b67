#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# clang-format, clang-tidy and clazy over the sources: scripts/lint.sh [file...]
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

scripts/packages.sh lint
if [ $# -gt 0 ]; then
    files=("$@")
else
    mapfile -t files < <(git ls-files '*.cpp' | grep -v -e '^tests/' -e '^benchmarks/')
fi
git ls-files '*.cpp' '*.h' | xargs clang-format --dry-run --Werror

# Nothing has to be built: no source includes what moc makes.
cmake --preset debug -DCMAKE_CXX_COMPILER=clang++ -DHALVORA_TESTS=OFF \
    -DCMAKE_DISABLE_PRECOMPILE_HEADERS=ON -B build/lint >/dev/null
printf '%s\n' "${files[@]}" | xargs -P "$(nproc)" -n 4 clang-tidy -p build/lint --quiet --warnings-as-errors='*'
printf '%s\n' "${files[@]}" |
    CLAZY_IGNORE_DIRS='/usr/.*' xargs -P "$(nproc)" -n 4 clazy-standalone -p build/lint -checks=level0,level1 \
        --extra-arg=-Werror
