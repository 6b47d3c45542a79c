# `cpack` makes an archive, and the Debian packages: the libraries, what it takes to build against them, and the program.

set(CPACK_PACKAGE_CONTACT "The ${PROJECT_NAME} maintainers")
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask is
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # else it stands in front of each description
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/corvaneplatform ${PROJECT_BINARY_DIR}/corvanemarkup)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# A trigger runs ldconfig, once for many packages; CPack adds scripts that do it, too.
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/RemoveLdconfigScripts.cmake)

set(runtime lib${PROJECT_NAME}${PROJECT_VERSION_MAJOR})
set(triggers ${PROJECT_BINARY_DIR}/debian/triggers)
file(WRITE ${triggers} "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${triggers})
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "text functions for the markup of tooltip templates (libraries)
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application. The library finds elements, tells
what is wrong with them, lists and renames sheets, and edits filter fields.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME lib${PROJECT_NAME}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), libboost-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "text functions for the markup of tooltip templates (headers)
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application.

This package holds what it takes to build programs on the library: headers,
a CMake package and a pkg-config file.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${PROJECT_NAME}-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION text)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "checker and editor for the markup of tooltip templates
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application.

This package holds tooltip-report, which tells what is wrong with tooltips as
compilers do, lists their elements and sheets, renames sheets and fields in
many files, and inserts fields into filters.")

set(CPACK_COMPONENTS_ALL runtime development)
set(packages ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME})
if(CORVANEMARKUP_BUILD_EXAMPLES)
  list(APPEND CPACK_COMPONENTS_ALL tools)
  list(APPEND packages ${CPACK_DEBIAN_TOOLS_PACKAGE_NAME})
endif()

# What Debian calls a changelog, from the entry of this version in ours.
if(CORVANEMARKUP_DEBIAN_CHANGELOG)
  file(READ CHANGELOG.md changes)
  string(REGEX REPLACE ".*## \\[${PROJECT_VERSION}\\] - ([0-9-]+)\n(.*)" "\\2" entry "${changes}")
  execute_process(COMMAND date --utc --rfc-email --date ${CMAKE_MATCH_1} OUTPUT_VARIABLE date COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "\n## .*" "" entry "${entry}")
  string(REGEX REPLACE "\n### [^\n]*\n" "" entry "${entry}")
  string(REGEX REPLACE "\n([^\n])" "\n  \\1" entry "\n${entry}")
  string(REPLACE "\n  - " "\n  * " entry "${entry}")
  string(STRIP "${entry}" entry)
  file(WRITE ${PROJECT_BINARY_DIR}/debian/entry "  ${entry}\n")
  execute_process(COMMAND fmt --tagged-paragraph --width=78 ${PROJECT_BINARY_DIR}/debian/entry OUTPUT_VARIABLE entry
                  COMMAND_ERROR_IS_FATAL ANY)
  file(WRITE ${PROJECT_BINARY_DIR}/debian/changelog
       "${PROJECT_NAME} (${PROJECT_VERSION}) unstable; urgency=medium\n\n${entry}\n -- ${CPACK_PACKAGE_CONTACT} <>  ${date}")
  execute_process(COMMAND gzip --best --no-name --force ${PROJECT_BINARY_DIR}/debian/changelog COMMAND_ERROR_IS_FATAL ANY)
  foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL packages)
    install(
      FILES ${PROJECT_BINARY_DIR}/debian/changelog.gz
      DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/${package}
      COMPONENT ${component})
  endforeach()
endif()

include(CPack)
