# SPDX-License-Identifier: MIT

# kx_add_library(<name> DIRECTORY <dir> HEADERS <dir> [LINK <targets>...] [LINK_PRIVATE <targets>...])
# One of the two shared libraries: the sources are <DIRECTORY>/source/*.cpp, the public headers <HEADERS>/*.h.
function(kx_add_library name)
    cmake_parse_arguments(PARSE_ARGV 1 ARG "" "DIRECTORY;HEADERS" "LINK;LINK_PRIVATE")
    file(GLOB sources CONFIGURE_DEPENDS
        "${PROJECT_SOURCE_DIR}/${ARG_DIRECTORY}/source/*.cpp"
        "${PROJECT_SOURCE_DIR}/${ARG_DIRECTORY}/source/*.h")
    file(GLOB headers CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/${ARG_HEADERS}/*.h")

    add_library(${name} SHARED)
    add_library(KxMFCWrapper::${name} ALIAS ${name})
    target_sources(${name}
        PRIVATE ${sources} ${headers}
        PUBLIC FILE_SET HEADERS BASE_DIRS "${PROJECT_SOURCE_DIR}/${ARG_HEADERS}" FILES ${headers})
    set_target_properties(${name} PROPERTIES
        AUTOMOC ON
        LINKER_LANGUAGE CXX
        VERSION ${PROJECT_VERSION}
        SOVERSION ${PROJECT_VERSION_MAJOR}
        INSTALL_RPATH "$ORIGIN"
        INTERPROCEDURAL_OPTIMIZATION OFF)
    target_link_libraries(${name} PUBLIC ${ARG_LINK} PRIVATE ${ARG_LINK_PRIVATE})
    target_compile_features(${name} PUBLIC cxx_std_17)
    # Members may be called through null and small object pointers, and say so in their first line; the
    # compiler must not conclude there, nor in a caller, that the pointer is a good one.
    target_compile_options(${name} PUBLIC -fno-delete-null-pointer-checks)
    target_compile_definitions(${name} PRIVATE QT_NO_KEYWORDS)
    kx_target_warnings(${name})
    if(NOT KX_SANITIZE)
        target_link_options(${name} PRIVATE LINKER:-z,defs)
    endif()
endfunction()
