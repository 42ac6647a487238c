# SPDX-License-Identifier: MIT
# What lets another project say find_package(tarnvik) and link tarnvik::gui_base.
include(CMakePackageConfigHelpers)

set(package_dir "${CMAKE_INSTALL_LIBDIR}/cmake/tarnvik")
configure_package_config_file("${CMAKE_CURRENT_LIST_DIR}/tarnvikConfig.cmake.in"
                              "${CMAKE_BINARY_DIR}/package/tarnvikConfig.cmake" INSTALL_DESTINATION "${package_dir}")
# Before 1.0 a minor version may change interfaces.
write_basic_package_version_file("${CMAKE_BINARY_DIR}/package/tarnvikConfigVersion.cmake"
                                 COMPATIBILITY SameMinorVersion)
install(EXPORT tarnvikTargets NAMESPACE tarnvik:: DESTINATION "${package_dir}")
install(FILES "${CMAKE_BINARY_DIR}/package/tarnvikConfig.cmake"
              "${CMAKE_BINARY_DIR}/package/tarnvikConfigVersion.cmake" "${CMAKE_CURRENT_LIST_DIR}/TarnvikWx.cmake"
        DESTINATION "${package_dir}")
