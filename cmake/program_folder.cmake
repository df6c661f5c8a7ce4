# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# Puts the program's folder together beside the executable: page files, pictures, the database and
# its key file. A database in which somebody has ticked or saved anything is left alone.

set(program_folder ${PROJECT_BINARY_DIR}/Tovarin)
set(shipped_folder ${PROJECT_BINARY_DIR}/shipped)

file(GLOB dictionary_files CONFIGURE_DEPENDS ${PROJECT_SOURCE_DIR}/data/dictionary/*.tsv)
add_custom_command(
    OUTPUT ${shipped_folder}/Tovarin.mdb ${shipped_folder}/tovarin.dll
    COMMAND mkdb build ${PROJECT_SOURCE_DIR}/data ${shipped_folder}
    DEPENDS mkdb ${dictionary_files} ${PROJECT_SOURCE_DIR}/data/settings.tsv
        ${PROJECT_SOURCE_DIR}/data/password.txt
    COMMENT "Building the names database")

file(GLOB page_files CONFIGURE_DEPENDS
    ${PROJECT_SOURCE_DIR}/data/pages/*.htm ${PROJECT_SOURCE_DIR}/data/pages/*.css
    ${PROJECT_SOURCE_DIR}/data/pages/*.png)
set(placed_files ${page_files} ${PROJECT_SOURCE_DIR}/data/pictures/logocust.jpg)
set(placed_stamp ${PROJECT_BINARY_DIR}/program_folder.stamp)
add_custom_command(
    OUTPUT ${placed_stamp}
    COMMAND ${CMAKE_COMMAND} -E copy_if_different ${placed_files} ${program_folder}
    COMMAND mkdb place ${shipped_folder} ${program_folder}
    COMMAND ${CMAKE_COMMAND} -E touch ${placed_stamp}
    DEPENDS tovarin ${placed_files} ${shipped_folder}/Tovarin.mdb ${shipped_folder}/tovarin.dll
    COMMENT "Putting the program's folder together")
add_custom_target(program_folder ALL DEPENDS ${placed_stamp})
