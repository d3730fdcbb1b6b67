# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
find_package(Qt5 5.15 REQUIRED COMPONENTS Test)

# The programs that the thread sanitizer runs, with what they start and load.
add_custom_target(threaded_tests)
add_dependencies(threaded_tests halvora pinegate corvia-service)

# halvora_add_test(<name> SOURCES ... LIBRARIES ... [LABELS ...])
# A Qt Test program that runs offscreen under a home folder of its own. The label "threads" marks
# tests that the thread sanitizer repeats.
function(halvora_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE halvora_options Qt5::Test ${ARG_LIBRARIES})
    target_compile_options(${name} PRIVATE -include ${PROJECT_SOURCE_DIR}/tests/support/patience.h)
    add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/support/in-fresh-home.sh $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600 LABELS "${ARG_LABELS}")
    if("threads" IN_LIST ARG_LABELS)
        add_dependencies(threaded_tests ${name})
    endif()
endfunction()
