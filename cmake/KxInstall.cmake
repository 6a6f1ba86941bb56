# SPDX-License-Identifier: MIT
# Libraries, headers of both in one folder of their own, CMake package and pkg-config files.

include(CMakePackageConfigHelpers)

set(KX_INSTALL_INCLUDEDIR "${CMAKE_INSTALL_INCLUDEDIR}/KxMFCWrapper")
set(KX_INSTALL_PACKAGEDIR "${CMAKE_INSTALL_LIBDIR}/cmake/KxMFCWrapper")

install(TARGETS KxPlatformBase KxMFCWrapper
    EXPORT KxMFCWrapperTargets
    LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}"
    FILE_SET HEADERS DESTINATION "${KX_INSTALL_INCLUDEDIR}")
install(EXPORT KxMFCWrapperTargets
    NAMESPACE KxMFCWrapper::
    DESTINATION "${KX_INSTALL_PACKAGEDIR}")

configure_package_config_file(cmake/KxMFCWrapperConfig.cmake.in
    "${PROJECT_BINARY_DIR}/KxMFCWrapperConfig.cmake"
    INSTALL_DESTINATION "${KX_INSTALL_PACKAGEDIR}"
    NO_SET_AND_CHECK_MACRO)
write_basic_package_version_file("${PROJECT_BINARY_DIR}/KxMFCWrapperConfigVersion.cmake"
    COMPATIBILITY SameMajorVersion)
install(FILES
    "${PROJECT_BINARY_DIR}/KxMFCWrapperConfig.cmake"
    "${PROJECT_BINARY_DIR}/KxMFCWrapperConfigVersion.cmake"
    DESTINATION "${KX_INSTALL_PACKAGEDIR}")

file(RELATIVE_PATH KX_PREFIX_FROM_PKGCONFIG
    "${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig" "${CMAKE_INSTALL_PREFIX}")
foreach(name IN ITEMS kxplatformbase kxmfcwrapper)
    configure_file(cmake/${name}.pc.in "${PROJECT_BINARY_DIR}/${name}.pc" @ONLY)
    install(FILES "${PROJECT_BINARY_DIR}/${name}.pc" DESTINATION "${CMAKE_INSTALL_LIBDIR}/pkgconfig")
endforeach()
