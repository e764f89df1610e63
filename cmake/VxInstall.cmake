# SPDX-License-Identifier: MIT
# What `cmake --install` and CPack deliver: libraries, headers, CMake package, pkg-config file,
# the applications and their man pages.

include(CMakePackageConfigHelpers)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/vxarttext)
set(header_dir ${CMAKE_INSTALL_INCLUDEDIR}/vxarttext)
set(installed_libraries ${VX_HOST_LIBRARIES} vxarttext)

foreach(library ${installed_libraries})
    set_property(TARGET ${library} PROPERTY INTERFACE_INCLUDE_DIRECTORIES
        $<BUILD_INTERFACE:${PROJECT_SOURCE_DIR}> $<INSTALL_INTERFACE:${header_dir}>)
endforeach()

install(TARGETS ${installed_libraries}
    EXPORT vxarttextTargets
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(EXPORT vxarttextTargets NAMESPACE vxarttext:: DESTINATION ${package_dir})

install(DIRECTORY host DESTINATION ${header_dir} FILES_MATCHING PATTERN "*.h" PATTERN "*_p.h" EXCLUDE)
install(FILES plugin/vxtext.h plugin/vxarttext_shared_global.h DESTINATION ${header_dir}/plugin)

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
foreach(program pagerender pagehost)
    if(TARGET ${program})
        install(TARGETS ${program} RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR})
        if(EXISTS ${PROJECT_SOURCE_DIR}/app/${program}/${program}.1)
            install(FILES app/${program}/${program}.1 DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)
        endif()
    endif()
endforeach()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME vxarttext)
set(CPACK_PACKAGE_CONTACT "The vxarttext authors")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${CMAKE_BINARY_DIR}/lib)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION libs)
include(CPack)
