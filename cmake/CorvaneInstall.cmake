# What a host installs: headers, libraries, a CMake package and a pkg-config file.

include(GNUInstallDirs)
include(CMakePackageConfigHelpers)

foreach(library IN ITEMS corvaneplatform corvanemarkup)
  install(
    TARGETS ${library}
    EXPORT ${library}-targets
    RUNTIME COMPONENT runtime
    LIBRARY COMPONENT runtime NAMELINK_COMPONENT development
    ARCHIVE COMPONENT development
    FILE_SET HEADERS COMPONENT development
    FILE_SET generated_headers COMPONENT development)
  install(
    EXPORT ${library}-targets
    NAMESPACE ${library}::
    DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/corvanemarkup
    COMPONENT development)
endforeach()

configure_package_config_file(
  cmake/corvanemarkup-config.cmake.in ${PROJECT_BINARY_DIR}/corvanemarkup-config.cmake
  INSTALL_DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/corvanemarkup)
write_basic_package_version_file(${PROJECT_BINARY_DIR}/corvanemarkup-config-version.cmake
                                 COMPATIBILITY SameMajorVersion)
install(
  FILES ${PROJECT_BINARY_DIR}/corvanemarkup-config.cmake ${PROJECT_BINARY_DIR}/corvanemarkup-config-version.cmake
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/cmake/corvanemarkup
  COMPONENT development)

# Relative to the file, which makes the installed tree relocatable, unless a directory was given as absolute.
if(IS_ABSOLUTE ${CMAKE_INSTALL_LIBDIR})
  set(pkgconfig_prefix ${CMAKE_INSTALL_PREFIX})
else()
  file(RELATIVE_PATH up /${CMAKE_INSTALL_LIBDIR}/pkgconfig /)
  set(pkgconfig_prefix "\${pcfiledir}/${up}")
endif()
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_INCLUDEDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pkgconfig_includedir)
cmake_path(ABSOLUTE_PATH CMAKE_INSTALL_LIBDIR BASE_DIRECTORY "\${prefix}" OUTPUT_VARIABLE pkgconfig_libdir)
if(NOT BUILD_SHARED_LIBS)
  set(pkgconfig_cflags "-DCORVANEMARKUP_STATIC_DEFINE -DCORVANEPLATFORM_STATIC_DEFINE")
endif()
configure_file(cmake/corvanemarkup.pc.in ${PROJECT_BINARY_DIR}/corvanemarkup.pc @ONLY)
install(
  FILES ${PROJECT_BINARY_DIR}/corvanemarkup.pc
  DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
  COMPONENT development)
