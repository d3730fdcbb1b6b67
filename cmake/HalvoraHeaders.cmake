# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Public headers are included as <halvora/name.h>, in this tree and against an installed SDK alike.
# In the tree each of them is a one-line forwarder in the build folder, so the sources may stand in rooms.
set(HALVORA_INCLUDE_DIR ${PROJECT_BINARY_DIR}/include)

function(halvora_public_headers target)
    foreach(header IN LISTS ARGN)
        get_filename_component(name ${header} NAME)
        file(CONFIGURE OUTPUT ${HALVORA_INCLUDE_DIR}/halvora/${name}
             CONTENT "#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\" // IWYU pragma: export\n")
        set_property(TARGET ${target} APPEND PROPERTY PUBLIC_HEADER ${CMAKE_CURRENT_SOURCE_DIR}/${header})
    endforeach()
    target_sources(${target} PRIVATE ${ARGN})
    target_include_directories(${target} PUBLIC $<BUILD_INTERFACE:${HALVORA_INCLUDE_DIR}>)
endfunction()
