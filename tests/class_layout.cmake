# SPDX-License-Identifier: MIT
# GCC's own account of every public class, for the test that compares the order of virtual operations.
# KX_CLASS_DUMP is the path of that account, a C string.

set(source "${CMAKE_CURRENT_BINARY_DIR}/class_layout.cpp")
set(dump "${CMAKE_CURRENT_BINARY_DIR}/class_layout.txt")
file(CONFIGURE OUTPUT "${source}" CONTENT "#include <KxMFCWrapper.h>\n")

set(includes "$<TARGET_PROPERTY:KxMFCWrapper,INTERFACE_INCLUDE_DIRECTORIES>")
add_custom_command(OUTPUT "${dump}"
    COMMAND "${CMAKE_CXX_COMPILER}" -std=c++17 -fPIC
        "-I$<JOIN:${includes},$<SEMICOLON>-I>"
        -fdump-lang-class=${dump} -MD -MF "${dump}.d" -MT "${dump}"
        -c -o "${dump}.o" "${source}"
    DEPENDS "${source}"
    DEPFILE "${dump}.d"
    COMMENT "Dumping the layout of the public classes"
    COMMAND_EXPAND_LISTS VERBATIM)
target_sources(tst_class_layout PRIVATE "${dump}")
target_compile_definitions(tst_class_layout PRIVATE "KX_CLASS_DUMP=\"${dump}\"")
