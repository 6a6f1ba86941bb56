# SPDX-License-Identifier: MIT
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

# windows.h and its like must not be found by whoever has <prefix>/include in the search path.
file(GLOB entries RELATIVE "${PREFIX}/include" "${PREFIX}/include/*")
if(NOT entries STREQUAL "KxMFCWrapper")
    message(FATAL_ERROR "headers outside the folder of their own: ${entries}")
endif()
file(GLOB private RELATIVE "${PREFIX}/include/KxMFCWrapper" "${PREFIX}/include/KxMFCWrapper/*_p.h")
if(private)
    message(FATAL_ERROR "private headers are installed: ${private}")
endif()
