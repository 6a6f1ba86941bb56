# SPDX-License-Identifier: MIT
# Every public header compiles alone, twice in a row, with Qt's keywords (signals, slots, emit) unusable.

file(GLOB headers CONFIGURE_DEPENDS
    "${PROJECT_SOURCE_DIR}/include/*.h"
    "${PROJECT_SOURCE_DIR}/platform/include/*.h")
set(sources "")
foreach(header IN LISTS headers)
    cmake_path(GET header FILENAME name)
    set(source "${CMAKE_CURRENT_BINARY_DIR}/headers/${name}.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include <${name}>\n#include <${name}>\n")
    list(APPEND sources "${source}")
endforeach()

if(EXISTS "${PROJECT_SOURCE_DIR}/include/KxMFCWrapper.h")
    # What project files define for a Unicode application, and what a porting team defines.
    set(source "${CMAKE_CURRENT_BINARY_DIR}/headers/host_definitions.cpp")
    file(CONFIGURE OUTPUT "${source}" CONTENT "#include <KxMFCWrapper.h>\n")
    set_property(SOURCE "${source}" PROPERTY COMPILE_DEFINITIONS
        UNICODE _UNICODE _WINDOWS _AFXDLL _DEBUG KX_WARN_INERT)
    list(APPEND sources "${source}")
endif()

add_library(headers_alone OBJECT ${sources})
target_link_libraries(headers_alone PRIVATE KxMFCWrapper::KxMFCWrapper)
target_compile_definitions(headers_alone PRIVATE QT_NO_KEYWORDS)
kx_target_warnings(headers_alone)
target_compile_options(headers_alone PRIVATE -O0 -g0)

add_test(NAME headers
    COMMAND "${CMAKE_COMMAND}" --build "${PROJECT_BINARY_DIR}" --target headers_alone)
set_tests_properties(headers PROPERTIES RUN_SERIAL ON TIMEOUT 600)
