#!/bin/bash
# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Builds with sanitizers and runs the tests under them: scripts/sanitize.sh asan|tsan
#   asan: address, undefined behaviour and leaks; the stories before a screen at one scale, without leaks
#   tsan: each threaded test, five times
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."

preset=${1:?asan or tsan}
scripts/packages.sh lint
cmake --preset "$preset" -DHALVORA_WERROR=ON >/dev/null
case $preset in
asan)
    cmake --build --preset asan
    export UBSAN_OPTIONS=print_stacktrace=1
    # Qt's offscreen platform never frees its fonts; nothing else is let pass. Twelve callers tell whose an
    # allocation is, and to find thirty takes twice as long.
    export LSAN_OPTIONS=suppressions=$PWD/tests/support/lsan.supp:print_suppressions=0
    ASAN_OPTIONS=detect_leaks=1:fast_unwind_on_malloc=0:malloc_context_size=12 \
        ctest --preset asan --no-tests=error -E 'stories_scale_2|story_scale_2' -j "$(nproc)"
    ;;
tsan)
    cmake --build --preset tsan --target threaded_tests
    # Qt and the C libraries are not built for it; what they do among themselves is their business.
    export TSAN_OPTIONS=ignore_noninstrumented_modules=1:halt_on_error=0:second_deadlock_stack=1
    ctest --preset tsan --no-tests=error -L threads --repeat until-fail:5 -j "$(nproc)"
    ;;
*)
    echo "asan or tsan" >&2
    exit 2
    ;;
esac
