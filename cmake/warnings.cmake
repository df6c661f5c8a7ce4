# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# One target that every library of this project links: warnings, the strict Qt string defines, and
# the source root on the include path ("platform/grid/flexgrid.h"). Warnings are errors in the
# presets where TOVARIN_STRICT is set, as .ci/run does: a newer compiler or Qt may know new ones,
# and stops nobody's build.
add_library(tovarin_warnings INTERFACE)
add_library(Tovarin::warnings ALIAS tovarin_warnings)

target_include_directories(tovarin_warnings INTERFACE ${PROJECT_SOURCE_DIR})
target_compile_options(tovarin_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
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

# Asserts stay on in every build type, the library's and Qt's own included: they are cheap here and
# guard the users' data.
foreach(type RELEASE RELWITHDEBINFO MINSIZEREL)
    string(REPLACE "-DNDEBUG" "" CMAKE_CXX_FLAGS_${type} "${CMAKE_CXX_FLAGS_${type}}")
endforeach()
target_compile_definitions(tovarin_warnings INTERFACE QT_FORCE_ASSERTS _GLIBCXX_ASSERTIONS)

# What a distribution asks of the programs it ships: checked buffers, no writable linkage tables.
# A compiler that checks buffers by itself may do so at another level.
if(CMAKE_BUILD_TYPE STREQUAL Release)
    target_compile_options(tovarin_warnings INTERFACE
        -fstack-protector-strong -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2)
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
