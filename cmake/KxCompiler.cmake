# SPDX-License-Identifier: MIT
# Language level, warnings and sanitizers of everything that this project compiles itself.

option(KX_WERROR "Treat warnings as errors" OFF)
set(KX_SANITIZE "" CACHE STRING "Comma-separated list for -fsanitize=, empty for none")

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

# No -Wnon-virtual-dtor: several public classes have virtual members and, for the sake of their layout,
# no virtual destructor.
set(KX_WARNINGS
    -Wall -Wextra -Wpedantic -Wshadow -Wcast-qual -Wcast-align -Wold-style-cast -Woverloaded-virtual
    -Wformat=2 -Wno-format-nonliteral -Wundef -Wunused -Wvla -Wextra-semi -Wnull-dereference -Wwrite-strings)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    list(APPEND KX_WARNINGS -Wduplicated-cond -Wlogical-op -Wsuggest-override)
else()
    # QSKIP() is a macro of Qt's that is called with nothing in the place of its "...".
    list(APPEND KX_WARNINGS
        -Winconsistent-missing-override -Wcomma -Wunreachable-code-break
        -Wno-gnu-zero-variadic-macro-arguments)
endif()
if(KX_WERROR)
    list(APPEND KX_WARNINGS -Werror)
endif()

if(KX_SANITIZE)
    # The vptr check would read through the small pointers that calls are allowed to go through.
    set(KX_SANITIZE_OPTIONS
        -fsanitize=${KX_SANITIZE} -fno-sanitize=vptr -fno-sanitize-recover=all -fno-omit-frame-pointer)
    add_compile_options(${KX_SANITIZE_OPTIONS})
    add_link_options(${KX_SANITIZE_OPTIONS})
    if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
        # The instrumented code leads GCC's flow analysis to paths that the source does not have.
        list(APPEND KX_WARNINGS -Wno-maybe-uninitialized -Wno-null-dereference)
    endif()
endif()

# Gives `target` this project's warnings; its users do not inherit them.
function(kx_target_warnings target)
    target_compile_options(${target} PRIVATE ${KX_WARNINGS})
endfunction()
