# SPDX-License-Identifier: MIT
# A host compiles its calls of inert members as they stand, and is told of each when it defines
# KX_WARN_INERT.

set(includes "$<TARGET_PROPERTY:KxMFCWrapper,INTERFACE_INCLUDE_DIRECTORIES>")
set(compile "${CMAKE_CXX_COMPILER}" -std=c++17 -fPIC -fsyntax-only -Werror=deprecated-declarations
    "-I$<JOIN:${includes},$<SEMICOLON>-I>")

add_test(NAME warn_inert
    COMMAND "${CMAKE_COMMAND}"
        -D "COMMAND=${compile}"
        -D "HOST=${CMAKE_CURRENT_SOURCE_DIR}/warn_inert/host.cpp"
        -P "${CMAKE_CURRENT_SOURCE_DIR}/warn_inert/check.cmake")
