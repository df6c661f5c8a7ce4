# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# One target that every library of this project links: warnings as errors, the strict Qt
# string defines, and the source root on the include path ("platform/grid/flexgrid.h").
add_library(tovarin_warnings INTERFACE)
add_library(Tovarin::warnings ALIAS tovarin_warnings)

target_include_directories(tovarin_warnings INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tovarin_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Werror)
target_compile_definitions(tovarin_warnings INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_CONTEXTLESS_CONNECT
    QT_NO_FOREACH
    QT_NO_KEYWORDS
    QT_USE_QSTRINGBUILDER
    QT_DISABLE_DEPRECATED_BEFORE=0x060400)

# Asserts stay on in every build type: they are cheap here and guard the users' data.
string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_RELEASE "${CMAKE_CXX_FLAGS_RELEASE}")

# What a distribution asks of the programs it ships: checked buffers, no writable linkage tables.
if(CMAKE_BUILD_TYPE STREQUAL Release)
    target_compile_options(tovarin_warnings INTERFACE -fstack-protector-strong)
    target_compile_definitions(tovarin_warnings INTERFACE _FORTIFY_SOURCE=2)
    if(WIN32)
        target_link_libraries(tovarin_warnings INTERFACE ssp)
    else()
        target_link_options(tovarin_warnings INTERFACE -Wl,-z,relro,-z,now)
    endif()
endif()

if(TOVARIN_SANITIZE)
    set(sanitizers -fsanitize=address,undefined -fno-sanitize-recover=undefined
        -fno-omit-frame-pointer)
    target_compile_options(tovarin_warnings INTERFACE ${sanitizers})
    target_link_options(tovarin_warnings INTERFACE ${sanitizers})
endif()

if(TOVARIN_FUZZ)
    set(sanitizers -fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=undefined)
    target_compile_options(tovarin_warnings INTERFACE ${sanitizers})
    target_link_options(tovarin_warnings INTERFACE ${sanitizers})
endif()
