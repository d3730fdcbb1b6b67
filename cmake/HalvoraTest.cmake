# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
find_package(Qt5 5.15 REQUIRED COMPONENTS Test Network Sql Widgets Xml)

# All tests and their support are compiled alike, because they share their precompiled headers.
add_library(halvora_test_options INTERFACE)
target_link_libraries(halvora_test_options INTERFACE
    halvora_options Qt5::Test Qt5::Network Qt5::Sql Qt5::Widgets Qt5::Xml)
if(NOT HALVORA_SANITIZE)
    target_compile_options(halvora_test_options INTERFACE $<$<CONFIG:Release>:-O0>)
endif()

# What every test sees, compiled once. Optimizing the tests themselves costs more than it saves.
add_library(halvora_test_headers OBJECT ${PROJECT_SOURCE_DIR}/tests/support/precompiled.cpp)
set_target_properties(halvora_test_headers PROPERTIES AUTOMOC OFF AUTORCC OFF)
target_link_libraries(halvora_test_headers PRIVATE halvora_test_options)
target_precompile_headers(halvora_test_headers PRIVATE <QtTest> ${PROJECT_SOURCE_DIR}/tests/support/patience.h)

# The programs that the thread sanitizer runs, with what they start and load.
add_custom_target(threaded_tests)
add_dependencies(threaded_tests halvora pinegate corvia-service)

# Uses the precompiled headers of the tests for @p target, a program or a library of theirs.
function(halvora_use_test_headers target)
    target_link_libraries(${target} PRIVATE halvora_test_options)
    target_precompile_headers(${target} REUSE_FROM halvora_test_headers)
endfunction()

# Runs moc once for a test of one source: AUTOMOC would make a target of its own and an empty source for it.
function(halvora_moc_test name)
    list(FILTER ARGN INCLUDE REGEX "\\.(cpp|h)$")
    if(NOT ARGN STREQUAL "${name}.cpp")
        return()
    endif()
    set(moc ${CMAKE_CURRENT_BINARY_DIR}/${name}_moc/${name}.moc)
    qt5_generate_moc(${CMAKE_CURRENT_SOURCE_DIR}/${name}.cpp ${moc})
    target_sources(${name} PRIVATE ${moc})
    target_include_directories(${name} PRIVATE ${CMAKE_CURRENT_BINARY_DIR}/${name}_moc)
    set_target_properties(${name} PROPERTIES AUTOMOC OFF)
endfunction()

# halvora_add_test(<name> SOURCES ... LIBRARIES ... [LABELS ...])
# A Qt Test program that runs offscreen under a home folder of its own. The label "threads" marks
# tests that the thread sanitizer repeats.
function(halvora_add_test name)
    cmake_parse_arguments(ARG "" "" "SOURCES;LIBRARIES;LABELS" ${ARGN})
    add_executable(${name} ${ARG_SOURCES})
    target_link_libraries(${name} PRIVATE ${ARG_LIBRARIES})
    halvora_use_test_headers(${name})
    halvora_moc_test(${name} ${ARG_SOURCES})
    add_test(NAME ${name} COMMAND ${PROJECT_SOURCE_DIR}/tests/support/in-fresh-home.sh $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT 600 LABELS "${ARG_LABELS}")
    if("threads" IN_LIST ARG_LABELS)
        add_dependencies(threaded_tests ${name})
    endif()
endfunction()
