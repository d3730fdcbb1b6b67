# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Where things go below the prefix, and what goes together: Runtime is the program with its libraries and the
# plug-in, Development is the SDK, Service is the loopback account service.

# On Debian the folder of libraries depends on the prefix, which "cmake --install --prefix" and the package choose
# later than the program has to know. The same one for all prefixes is searched under all of them, too.
if(CMAKE_LIBRARY_ARCHITECTURE AND EXISTS /etc/debian_version)
    set(CMAKE_INSTALL_LIBDIR lib/${CMAKE_LIBRARY_ARCHITECTURE} CACHE PATH "Object code libraries")
endif()
include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

# Relative to the prefix. Plug-ins that are built against the SDK learn these names from it. The libraries stand in a
# folder of their own: they are for this program and its plug-ins, and the system's linker need not look at them.
set(HALVORA_LIBRARY_DIR ${CMAKE_INSTALL_LIBDIR}/halvora)
set(HALVORA_PLUGIN_DIR ${HALVORA_LIBRARY_DIR}/plugins)
set(HALVORA_TRANSLATION_DIR ${CMAKE_INSTALL_DATADIR}/halvora/translations)
set(HALVORA_SDK_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/HalvoraSdk)

# halvora_relative_to(<variable> <from> <to>): the way between two folders below the prefix.
function(halvora_relative_to variable from to)
    file(RELATIVE_PATH way /prefix/${from} /prefix/${to})
    set(${variable} ${way} PARENT_SCOPE)
endfunction()

# A library of the SDK, with the headers that halvora_public_headers named.
function(halvora_install_library target)
    # The libraries find each other wherever the prefix is moved to.
    set_target_properties(${target} PROPERTIES INSTALL_RPATH "$ORIGIN")
    install(TARGETS ${target} EXPORT HalvoraSdkTargets INCLUDES DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}
            LIBRARY DESTINATION ${HALVORA_LIBRARY_DIR} COMPONENT Runtime NAMELINK_COMPONENT Development
            PUBLIC_HEADER DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/halvora COMPONENT Development)
endfunction()

# What find_package(HalvoraSdk) finds.
function(halvora_install_sdk)
    configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/HalvoraSdkConfig.cmake.in HalvoraSdkConfig.cmake
                                  INSTALL_DESTINATION ${HALVORA_SDK_DIR})
    write_basic_package_version_file(HalvoraSdkConfigVersion.cmake COMPATIBILITY SameMinorVersion)
    install(FILES ${CMAKE_CURRENT_BINARY_DIR}/HalvoraSdkConfig.cmake
                  ${CMAKE_CURRENT_BINARY_DIR}/HalvoraSdkConfigVersion.cmake
            DESTINATION ${HALVORA_SDK_DIR} COMPONENT Development)
    install(EXPORT HalvoraSdkTargets NAMESPACE HalvoraSdk:: DESTINATION ${HALVORA_SDK_DIR} COMPONENT Development)
endfunction()
