# SPDX-FileCopyrightText: 2026 The Tovarin developers
# SPDX-License-Identifier: MIT

# Compiles through ccache where it works, unless whoever builds has a launcher of their own. It does
# not work where its folder, mostly in the user's home, can't be written.
find_program(CCACHE ccache)
if(CCACHE AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
    set(trial ${CMAKE_BINARY_DIR}/CMakeFiles/ccache-trial)
    file(WRITE ${trial}.cpp "int trial = 0;\n")
    execute_process(
        COMMAND ${CCACHE} ${CMAKE_CXX_COMPILER} -c ${trial}.cpp -o ${trial}.o
        RESULT_VARIABLE result OUTPUT_QUIET ERROR_QUIET)
    if(result EQUAL 0)
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
    else()
        message(STATUS "ccache does not work here, and is not used")
    endif()
endif()
