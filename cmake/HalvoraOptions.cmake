# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# One target that every target of ours links privately: language level, warnings, Qt strictness, sanitizers.
set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTORCC ON)
if(NOT CMAKE_BUILD_TYPE)
    set(CMAKE_BUILD_TYPE Release)
endif()

option(HALVORA_WERROR "Treat warnings as errors" OFF)
set(HALVORA_SANITIZE "" CACHE STRING "Sanitizers to build with, for example address,undefined")

add_library(halvora_options INTERFACE)
target_compile_definitions(halvora_options INTERFACE
    QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_CAST_FROM_BYTEARRAY
    QT_STRICT_ITERATORS QT_NO_KEYWORDS QT_DEPRECATED_WARNINGS)
target_compile_options(halvora_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    # Qt's logging macros are used without their optional arguments.
    $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
    $<$<BOOL:${HALVORA_WERROR}>:-Werror>)
if(HALVORA_SANITIZE)
    target_compile_options(halvora_options INTERFACE
        -fsanitize=${HALVORA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all -O1)
    target_link_options(halvora_options INTERFACE -fsanitize=${HALVORA_SANITIZE})
endif()

# Compiles what nearly every source of @p target includes once. The sources include what they use all the same:
# the linters and the plug-in's build against an SDK go without.
function(halvora_precompile target)
    target_precompile_headers(${target} PRIVATE <QtCore> <QSqlQuery> <QWidget> <chrono> <functional>)
endfunction()
