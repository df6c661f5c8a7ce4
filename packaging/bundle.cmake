# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# Puts the libraries that the program needs into the portable folder, with the browser's helper and
# its files, Qt's plugins, and the terms of the packages that all this comes from. Runs when the
# folder is installed; "qmake" tells where Qt lies.

set(folder "$ENV{DESTDIR}${CMAKE_INSTALL_PREFIX}/Tovarin")

function(qt_path variable name)
    execute_process(COMMAND ${qmake} -query ${name}
        OUTPUT_VARIABLE path OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    set(${variable} ${path} PARENT_SCOPE)
endfunction()

qt_path(plugins QT_INSTALL_PLUGINS)
qt_path(libexec QT_INSTALL_LIBEXECS)
qt_path(data QT_INSTALL_DATA)
qt_path(translations QT_INSTALL_TRANSLATIONS)
qt_path(libraries QT_INSTALL_LIBS)

# The helper looks for its files by itself, as the program does.
file(COPY ${libexec}/QtWebEngineProcess ${folder}/shipped/qt.conf DESTINATION ${folder}/libexec)
file(COPY ${data}/resources DESTINATION ${folder} PATTERN qtwebengine_devtools_resources.pak EXCLUDE)
file(COPY ${translations}/qtwebengine_locales DESTINATION ${folder}/translations
    FILES_MATCHING PATTERN en-*.pak)
foreach(plugin platforms/libqxcb.so platforms/libqoffscreen.so imageformats/libqjpeg.so
        platforminputcontexts/libcomposeplatforminputcontextplugin.so
        platforminputcontexts/libibusplatforminputcontextplugin.so
        printsupport/libcupsprintersupport.so
        xcbglintegrations/libqxcb-egl-integration.so xcbglintegrations/libqxcb-glx-integration.so)
    get_filename_component(kind ${plugin} DIRECTORY)
    file(COPY ${plugins}/${plugin} DESTINATION ${folder}/plugins/${kind})
endforeach()
# Libraries that others load by name while they run.
file(GLOB loaded ${libraries}/libsoftokn3.so ${libraries}/libfreebl*.so ${libraries}/nss/*.so
    ${libraries}/libnssckbi.so)

# What every desktop has, and what has to fit its graphics drivers, stays the desktop's own.
set(of_the_desktop
    ld-linux-x86-64 libc libm libdl libpthread librt libresolv libutil libgcc_s libstdc\\+\\+
    libGL libEGL libGLX libGLdispatch libdrm libgbm
    libX11 libX11-xcb libxcb libfontconfig libfreetype libexpat libz libasound libcom_err libgpg-error)
list(JOIN of_the_desktop "|" names)

file(GLOB_RECURSE plugin_files ${folder}/plugins/*.so)
file(GET_RUNTIME_DEPENDENCIES
    RESOLVED_DEPENDENCIES_VAR needed
    UNRESOLVED_DEPENDENCIES_VAR missing
    EXECUTABLES ${folder}/tovarin ${folder}/shipped/tovarin ${folder}/libexec/QtWebEngineProcess
    LIBRARIES ${plugin_files} ${loaded}
    PRE_EXCLUDE_REGEXES "^(${names})\\.so")
if(missing)
    message(FATAL_ERROR "These libraries are not found: ${missing}")
endif()
foreach(library ${needed} ${loaded})
    file(COPY ${library} DESTINATION ${folder}/lib FOLLOW_SYMLINK_CHAIN)
    list(APPEND from ${library})
    # One that looks for others in a place of its own would not look here.
    file(REAL_PATH ${library} real)
    get_filename_component(name ${real} NAME)
    execute_process(COMMAND patchelf --print-rpath ${folder}/lib/${name}
        OUTPUT_VARIABLE place OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
    if(place)
        execute_process(COMMAND patchelf --remove-rpath ${folder}/lib/${name}
            COMMAND_ERROR_IS_FATAL ANY)
    endif()
endforeach()

# Libraries are found from where the program, its launcher and the browser's helper lie.
function(find_libraries file place)
    execute_process(COMMAND patchelf --force-rpath --set-rpath ${place} ${folder}/${file}
        COMMAND_ERROR_IS_FATAL ANY)
endfunction()
find_libraries(tovarin "\$ORIGIN/lib")
find_libraries(shipped/tovarin "\$ORIGIN/../lib")
find_libraries(libexec/QtWebEngineProcess "\$ORIGIN/../lib")
file(CHMOD ${folder}/shipped/tovarin PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)

file(MAKE_DIRECTORY ${folder}/copyrights)
foreach(file ${from} ${libexec}/QtWebEngineProcess)
    file(REAL_PATH ${file} real)
    execute_process(COMMAND dpkg-query -S ${real} OUTPUT_VARIABLE owner ERROR_QUIET)
    if(NOT owner)
        string(REGEX REPLACE "^/usr" "" real ${real})
        execute_process(COMMAND dpkg-query -S ${real} OUTPUT_VARIABLE owner COMMAND_ERROR_IS_FATAL ANY)
    endif()
    string(REGEX MATCH "^[^:]+" package "${owner}")
    file(COPY_FILE /usr/share/doc/${package}/copyright ${folder}/copyrights/${package}.txt
        RESULT result ONLY_IF_DIFFERENT)
    if(result)
        message(FATAL_ERROR "The terms of ${package} are not found: ${result}")
    endif()
endforeach()
