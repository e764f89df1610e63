# SPDX-License-Identifier: MIT
# What `cmake --install` and CPack deliver besides the targets and headers that each folder
# installs itself: CMake package, pkg-config file, documents, the .deb.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vxarttext)
install(EXPORT vxarttextTargets NAMESPACE vxarttext:: DESTINATION ${package_dir})

configure_package_config_file(cmake/vxarttextConfig.cmake.in
    ${CMAKE_BINARY_DIR}/vxarttextConfig.cmake INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(${CMAKE_BINARY_DIR}/vxarttextConfigVersion.cmake
    COMPATIBILITY SameMajorVersion)
install(FILES
    ${CMAKE_BINARY_DIR}/vxarttextConfig.cmake
    ${CMAKE_BINARY_DIR}/vxarttextConfigVersion.cmake
    DESTINATION ${package_dir})

configure_file(cmake/vxarttext.pc.in ${CMAKE_BINARY_DIR}/vxarttext.pc @ONLY)
install(FILES ${CMAKE_BINARY_DIR}/vxarttext.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)

install(FILES LICENSE README.md CHANGELOG.md DESTINATION ${CMAKE_INSTALL_DOCDIR})

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vxarttext)
set(CPACK_PACKAGE_CONTACT "The vxarttext authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
include(CPack)
