# SPDX-FileCopyrightText: 2026 The Halvora developers
# SPDX-License-Identifier: MIT
# Debian packages of what is built: halvora and halvora-dev. There are no maintainer scripts; the caches of the
# desktop, the types and the icons follow by the triggers of the packages that own them.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME halvora)
set(CPACK_PACKAGE_CONTACT "The Halvora developers <developers@halvora.example>")
set(CPACK_PACKAGE_HOMEPAGE_URL https://halvora.example/)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

# The service is a tool of whoever builds a plug-in in this tree; it is in no package.
set(CPACK_COMPONENTS_ALL Runtime Development)
set(CPACK_COMPONENTS_GROUPING IGNORE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS
    $<TARGET_FILE_DIR:HalvoraCore> $<TARGET_FILE_DIR:HalvoraConnector>)

set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME halvora)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION news)
# Loaded at run time, so nobody finds them in the files.
set(CPACK_DEBIAN_RUNTIME_PACKAGE_DEPENDS libqt5sql5-sqlite)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_RECOMMENDS "qttranslations5-l10n, shared-mime-info, xdg-utils")
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION "Usenet client with provider plug-ins\n\
Halvora browses newsgroups and keeps bookmarks of them in coloured folders.\n\
What depends on one Usenet provider comes as a plug-in; the one for Pinegate\n\
is included.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME halvora-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SHLIBDEPS OFF)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS
    "halvora (= ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE}), qtbase5-dev (>= 5.15)")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION "SDK for plug-ins of the Usenet client Halvora\n\
Headers and CMake files for building provider plug-ins. A plug-in logs its\n\
users in to their provider, shows their account and keeps their bookmarks.")

add_custom_command(OUTPUT changelog.Debian.gz DEPENDS data/debian/changelog VERBATIM
                   COMMAND gzip -9nc ${PROJECT_SOURCE_DIR}/data/debian/changelog > changelog.Debian.gz)
add_custom_target(halvora_changelog ALL DEPENDS changelog.Debian.gz)
# Of packages only: elsewhere they would name a distribution that is another one.
foreach(pair Runtime:halvora Development:halvora-dev)
    string(REPLACE ":" ";" pair ${pair})
    list(POP_FRONT pair component package)
    install(FILES data/debian/copyright ${PROJECT_BINARY_DIR}/changelog.Debian.gz
            DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package} COMPONENT ${component}
            EXCLUDE_FROM_ALL)
endforeach()

include(CPack)
