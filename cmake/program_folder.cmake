# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# Puts together what ships, beside the executable: page files, pictures, the database and its key
# file. Then brings the program's folder up to date with it, where the developer's own ticks are.

set(program_folder ${PROJECT_BINARY_DIR}/Tovarin)
set(shipped_folder ${PROJECT_BINARY_DIR}/shipped)

set(database_files ${shipped_folder}/Tovarin.mdb ${shipped_folder}/tovarin.dll)
if(CMAKE_CROSSCOMPILING)
    # A database is the same on every system: the one that this machine has built is taken.
    set(TOVARIN_HOST_BUILD "" CACHE PATH "The build for this machine")
    set(database_sources
        ${TOVARIN_HOST_BUILD}/shipped/Tovarin.mdb ${TOVARIN_HOST_BUILD}/shipped/tovarin.dll)
    set(build_database ${CMAKE_COMMAND} -E copy ${database_sources} ${shipped_folder})
    set(place_files ${CMAKE_COMMAND} -E true) # the program does it when it starts
else()
    file(GLOB dictionary_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/dictionary/*.tsv)
    set(database_sources mkdb ${dictionary_files} ${PROJECT_SOURCE_DIR}/data/settings.tsv
        ${PROJECT_SOURCE_DIR}/data/password.txt)
    set(build_database mkdb build ${PROJECT_SOURCE_DIR}/data ${shipped_folder})
    set(place_files mkdb place ${shipped_folder} ${program_folder})
endif()
add_custom_command(
    OUTPUT ${database_files}
    COMMAND ${build_database}
    DEPENDS ${database_sources}
    COMMENT "Building the names database")

file(GLOB page_files CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/data/pages/*.htm ${PROJECT_SOURCE_DIR}/data/pages/*.css
    ${PROJECT_SOURCE_DIR}/data/pages/*.png)
set(page_files ${page_files} ${PROJECT_SOURCE_DIR}/data/pictures/logocust.jpg)
# All that ships but the program itself.
set(shipped_files ${database_files})
foreach(file ${page_files})
    get_filename_component(name ${file} NAME)
    list(APPEND shipped_files ${shipped_folder}/${name})
endforeach()
set(placed_stamp ${PROJECT_BINARY_DIR}/program_folder.stamp)
add_custom_command(
    OUTPUT ${placed_stamp}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${page_files} ${shipped_folder}
    COMMAND ${place_files}
    COMMAND ${CMAKE_COMMAND} -E touch ${placed_stamp}
    DEPENDS tovarin ${page_files} ${database_files}
    COMMENT "Putting the program's folder together")
add_custom_target(program_folder ALL DEPENDS ${placed_stamp})
