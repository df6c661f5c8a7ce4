# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# What goes into the two packages that ./package makes: "system", a Debian package for all users of
# a computer, and "portable", an archive with everything in one folder.

file(STRINGS ${PROJECT_SOURCE_DIR}/data/settings.tsv TOVARIN_VERSION_DATE REGEX "^versiondate\t")
string(REPLACE "versiondate\t" "" TOVARIN_VERSION_DATE "${TOVARIN_VERSION_DATE}")
execute_process(
    COMMAND date -R -u -d ${TOVARIN_VERSION_DATE}
    OUTPUT_VARIABLE TOVARIN_CHANGELOG_DATE OUTPUT_STRIP_TRAILING_WHITESPACE)

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)
foreach(name tovarin.1 changelog org.tovarin.tovarin.metainfo.xml)
    configure_file(${packaging}/${name}.in ${made}/${name} @ONLY)
endforeach()
foreach(name tovarin.1 changelog)
    add_custom_command(
        OUTPUT ${made}/${name}.gz
        COMMAND gzip -9nc ${made}/${name} > ${made}/${name}.gz
        DEPENDS ${made}/${name})
endforeach()
add_custom_target(package_texts ALL DEPENDS ${made}/tovarin.1.gz ${made}/changelog.gz)

# The program in a shipped folder can't be started: the launcher puts it into the program's folder.
set(not_to_start PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

# What "cmake --install" puts into a prefix of any name, and the Debian package into /usr.
set(shared ${CMAKE_INSTALL_DATAROOTDIR})
install(TARGETS tovarin_launcher RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT system)
install(TARGETS tovarin RUNTIME DESTINATION ${CMAKE_INSTALL_LIBDIR}/tovarin ${not_to_start}
    COMPONENT system)
install(FILES ${shipped_files} DESTINATION ${CMAKE_INSTALL_LIBDIR}/tovarin COMPONENT system)
install(FILES ${packaging}/org.tovarin.tovarin.desktop
    DESTINATION ${shared}/applications COMPONENT system)
install(FILES ${made}/org.tovarin.tovarin.metainfo.xml
    DESTINATION ${shared}/metainfo COMPONENT system)
install(FILES ${made}/tovarin.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1 COMPONENT system)
install(FILES ${packaging}/copyright ${made}/changelog.gz
    DESTINATION ${shared}/doc/tovarin COMPONENT system)
foreach(size 16 24 32 48 64 128 256)
    install(FILES ${PROJECT_SOURCE_DIR}/data/pictures/tovarin-${size}.png
        DESTINATION ${shared}/icons/hicolor/${size}x${size}/apps
        RENAME org.tovarin.tovarin.png COMPONENT system)
endforeach()
install(FILES ${PROJECT_SOURCE_DIR}/data/pictures/tovarin.svg
    DESTINATION ${shared}/icons/hicolor/scalable/apps
    RENAME org.tovarin.tovarin.svg COMPONENT system)

# What only the Debian package has.
install(FILES ${packaging}/lintian-overrides
    DESTINATION ${shared}/lintian/overrides RENAME tovarin COMPONENT debian EXCLUDE_FROM_ALL)

# What only the portable archive has, with the libraries it brings.
install(TARGETS tovarin_launcher RUNTIME DESTINATION Tovarin COMPONENT portable EXCLUDE_FROM_ALL)
install(TARGETS tovarin RUNTIME DESTINATION Tovarin/shipped ${not_to_start}
    COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${shipped_files} ${packaging}/qt.conf DESTINATION Tovarin/shipped
    COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${packaging}/launcher-qt.conf
    DESTINATION Tovarin RENAME qt.conf COMPONENT portable EXCLUDE_FROM_ALL)
install(FILES ${packaging}/README.txt ${packaging}/copyright
    ${PROJECT_SOURCE_DIR}/data/pictures/tovarin.svg
    DESTINATION Tovarin COMPONENT portable EXCLUDE_FROM_ALL)
get_target_property(qmake Qt6::qmake IMPORTED_LOCATION)
install(CODE "set(qmake \"${qmake}\")" COMPONENT portable EXCLUDE_FROM_ALL)
install(SCRIPT ${packaging}/bundle.cmake COMPONENT portable EXCLUDE_FROM_ALL)

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME tovarin)
set(CPACK_PACKAGE_VENDOR "The Tovarin developers")
set(CPACK_PACKAGE_CONTACT "The Tovarin developers <developers@tovarin.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "choose a first name for your child")
set(CPACK_PACKAGE_DESCRIPTION
    "A dictionary of some 20,000 given names from 86 languages and cultures,
each with its origin and meaning. Browse it by letter or search it by
spelling, origin and meaning, tick the names you like, rank the best of
them, compose full names with their initials, and print the result.")
set(CPACK_PACKAGE_CHECKSUM SHA256)
set(CPACK_PACKAGE_DIRECTORY ${PROJECT_BINARY_DIR}/../packages)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_COMPONENTS_GROUPING ALL_COMPONENTS_IN_ONE)
set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_ARCHIVE_COMPONENT_INSTALL ON)
set(CPACK_COMPONENT_INCLUDE_TOPLEVEL_DIRECTORY OFF)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_PROJECT_CONFIG_FILE ${packaging}/components.cmake)
include(CPack)
