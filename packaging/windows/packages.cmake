# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# What goes into the folder that ./windows makes both packages from, and the program's icon, version
# information and manifest.

set(packaging ${PROJECT_SOURCE_DIR}/packaging/windows)
enable_language(RC)
configure_file(${packaging}/tovarin.rc.in ${PROJECT_BINARY_DIR}/tovarin.rc @ONLY)
set_property(SOURCE ${PROJECT_BINARY_DIR}/tovarin.rc APPEND PROPERTY OBJECT_DEPENDS
    "${PROJECT_SOURCE_DIR}/data/pictures/tovarin.ico;${packaging}/tovarin.manifest")
target_sources(tovarin PRIVATE ${PROJECT_BINARY_DIR}/tovarin.rc)
# It is made here, of a target of another folder.
set_property(SOURCE ${PROJECT_BINARY_DIR}/tovarin.rc TARGET_DIRECTORY tovarin PROPERTY LANGUAGE RC)

# The program puts what ships into its own folder, which the package therefore leaves alone.
install(TARGETS tovarin RUNTIME DESTINATION . COMPONENT windows)
install(FILES ${shipped_files} DESTINATION shipped COMPONENT windows)

set(qt ${Qt6_DIR}/../../..)
foreach(library Core Gui Widgets PrintSupport)
    install(FILES ${qt}/bin/Qt6${library}.dll DESTINATION . COMPONENT windows)
endforeach()
foreach(plugin platforms/qwindows styles/qwindowsvistastyle imageformats/qjpeg)
    get_filename_component(folder ${plugin} DIRECTORY)
    install(FILES ${qt}/plugins/${plugin}.dll DESTINATION ${folder} COMPONENT windows)
endforeach()
foreach(library libstdc++-6 libgcc_s_seh-1 libssp-0 libwinpthread-1)
    execute_process(
        COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${library}.dll
        OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    if(NOT IS_ABSOLUTE "${file}")
        set(file /usr/x86_64-w64-mingw32/lib/${library}.dll)
    endif()
    install(FILES ${file} DESTINATION . COMPONENT windows)
endforeach()

install(FILES ${packaging}/README.txt DESTINATION . COMPONENT windows)
install(FILES ${PROJECT_SOURCE_DIR}/packaging/copyright
    DESTINATION copyrights RENAME tovarin.txt COMPONENT windows)
install(FILES ${qt}/copyright-qt6-base.txt DESTINATION copyrights RENAME qt6.txt COMPONENT windows)
foreach(package gcc-mingw-w64-base mingw-w64-common)
    install(FILES /usr/share/doc/${package}/copyright
        DESTINATION copyrights RENAME ${package}.txt COMPONENT windows)
endforeach()
foreach(licence LGPL-3 LGPL-2.1 GPL-2 GPL-3 Apache-2.0 CC0-1.0)
    install(FILES /usr/share/common-licenses/${licence}
        DESTINATION copyrights RENAME ${licence}.txt COMPONENT windows)
endforeach()
