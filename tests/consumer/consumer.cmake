# SPDX-License-Identifier: MIT
# The package as a stranger meets it: installed into an empty prefix, found there once by CMake and once by
# pkg-config, a small program built against it and run.

set(prefix "${CMAKE_CURRENT_BINARY_DIR}/consumer/prefix")
string(JOIN " " flags ${KX_SANITIZE_OPTIONS})
set(settings
    -D "PREFIX=${prefix}"
    -D "LIBDIR=${CMAKE_INSTALL_LIBDIR}"
    -D "COMPILER=${CMAKE_CXX_COMPILER}"
    -D "FLAGS=${flags}"
    -D "SOURCE=${CMAKE_CURRENT_SOURCE_DIR}/consumer"
    -D "WORK=${CMAKE_CURRENT_BINARY_DIR}/consumer")

add_test(NAME package_install
    COMMAND "${CMAKE_COMMAND}" ${settings} -D "BUILD=${PROJECT_BINARY_DIR}"
        -P "${CMAKE_CURRENT_SOURCE_DIR}/consumer/install.cmake")
set_tests_properties(package_install PROPERTIES FIXTURES_SETUP package)
foreach(way IN ITEMS cmake pkgconfig)
    add_test(NAME package_${way}
        COMMAND "${CMAKE_COMMAND}" ${settings} -P "${CMAKE_CURRENT_SOURCE_DIR}/consumer/${way}.cmake")
    set_tests_properties(package_${way} PROPERTIES FIXTURES_REQUIRED package)
endforeach()
