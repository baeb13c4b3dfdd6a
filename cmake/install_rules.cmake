# cmake --install: the libraries, the headers in include/qvcommon940r/, the CMake package and the
# pkg-config file.

include(CMakePackageConfigHelpers)

set(qvcommon_targets qvcommon940r)
if(QVCOMMON_BUILD_STATIC)
  list(APPEND qvcommon_targets qvcommon940r_static)
endif()
install(TARGETS ${qvcommon_targets} EXPORT qvcommon940r-targets
        LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR}
        ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR})
install(DIRECTORY ${PROJECT_SOURCE_DIR}/include/
        DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/qvcommon940r)

set(package_dir ${CMAKE_INSTALL_LIBDIR}/cmake/qvcommon940r)
install(EXPORT qvcommon940r-targets NAMESPACE qvcommon940r:: DESTINATION ${package_dir})
configure_package_config_file(cmake/qvcommon940r-config.cmake.in qvcommon940r-config.cmake
                              INSTALL_DESTINATION ${package_dir})
write_basic_package_version_file(qvcommon940r-config-version.cmake COMPATIBILITY SameMajorVersion)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qvcommon940r-config.cmake
              ${CMAKE_CURRENT_BINARY_DIR}/qvcommon940r-config-version.cmake
        DESTINATION ${package_dir})

# The pkg-config file finds the tree from its own place, so that the tree can be moved.
file(RELATIVE_PATH qvcommon_pc_prefix
     ${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
string(REGEX REPLACE "/$" "" qvcommon_pc_prefix ${qvcommon_pc_prefix})
configure_file(cmake/qvcommon940r.pc.in qvcommon940r.pc @ONLY)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/qvcommon940r.pc
        DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig)
