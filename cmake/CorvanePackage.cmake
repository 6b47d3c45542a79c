# `cpack` makes an archive, and the Debian packages: the libraries, what it takes to build against them, and the program.

set(CPACK_PACKAGE_CONTACT "The ${PROJECT_NAME} maintainers")
set(CPACK_ARCHIVE_COMPONENT_INSTALL OFF)
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS # whatever the umask is
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEB_COMPONENT_INSTALL ON)
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "") # otherwise it precedes each description
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS ${PROJECT_BINARY_DIR}/corvaneplatform ${PROJECT_BINARY_DIR}/corvanemarkup)
set(CPACK_DEBIAN_PACKAGE_GENERATE_SHLIBS ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

# A trigger runs ldconfig, once for many packages; CPack adds scripts that do it, too.
set(CPACK_POST_BUILD_SCRIPTS ${PROJECT_SOURCE_DIR}/cmake/DebianControl.cmake)

set(runtime lib${PROJECT_NAME}${PROJECT_VERSION_MAJOR})
set(triggers ${PROJECT_BINARY_DIR}/debian/triggers)
file(WRITE ${triggers} "activate-noawait ldconfig\n")
set(CPACK_DEBIAN_RUNTIME_PACKAGE_NAME ${runtime})
set(CPACK_DEBIAN_RUNTIME_PACKAGE_SECTION libs)
set(CPACK_DEBIAN_RUNTIME_PACKAGE_CONTROL_EXTRA ${triggers})
set(CPACK_COMPONENT_RUNTIME_DESCRIPTION
    "text functions for the markup of tooltip templates (libraries)
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application. The library finds elements, reports
what is wrong with them, lists and renames sheets, and edits filter fields.")

set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME lib${PROJECT_NAME}-dev)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_SECTION libdevel)
set(CPACK_DEBIAN_DEVELOPMENT_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION}), libboost-dev")
set(CPACK_COMPONENT_DEVELOPMENT_DESCRIPTION
    "text functions for the markup of tooltip templates (headers)
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application.

This package holds what it takes to build programs on the library: headers,
a CMake package, a pkg-config file, a cookbook, the format of tooltips, and
what the library guarantees.")

set(CPACK_DEBIAN_TOOLS_PACKAGE_NAME ${PROJECT_NAME}-tools)
set(CPACK_DEBIAN_TOOLS_PACKAGE_SECTION text)
set(CPACK_DEBIAN_TOOLS_PACKAGE_DEPENDS "${runtime} (= ${PROJECT_VERSION})")
set(CPACK_COMPONENT_TOOLS_DESCRIPTION
    "checker and editor for the markup of tooltip templates
A tooltip template is plain text with elements in angle brackets, some of
which embed a sheet of a host application.

This package holds the program tooltip-report, which checks tooltips and
reports as compilers do, lists their elements and sheets, compares two
versions, renames sheets and fields in many files, and inserts fields into
filters. With it come its man page, its completion for bash, the format of
tooltips, and what the checks and their JSON output mean.")

set(CPACK_COMPONENTS_ALL runtime development)
set(packages ${CPACK_DEBIAN_RUNTIME_PACKAGE_NAME} ${CPACK_DEBIAN_DEVELOPMENT_PACKAGE_NAME})
if(CORVANEMARKUP_BUILD_TOOLS)
  list(APPEND CPACK_COMPONENTS_ALL tools)
  list(APPEND packages ${CPACK_DEBIAN_TOOLS_PACKAGE_NAME})
endif()

# What Debian calls a changelog, from the entry of this version in ours.
if(CORVANEMARKUP_DEBIAN)
  set(changelog ${PROJECT_BINARY_DIR}/debian/changelog)
  file(READ CHANGELOG.md changes)
  string(REGEX REPLACE ".*## \\[${PROJECT_VERSION}\\] - ([0-9-]+)\n(.*)" "\\2" entry "${changes}")
  execute_process(COMMAND date --utc --rfc-email --date ${CMAKE_MATCH_1} OUTPUT_VARIABLE date COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE "\n## .*" "" entry "${entry}")
  string(REGEX REPLACE "\n### [^\n]*\n" "" entry "${entry}")
  string(REGEX REPLACE "\n([^\n])" "\n  \\1" entry "\n${entry}")
  string(REPLACE "\n  - " "\n  * " entry "${entry}")
  string(STRIP "${entry}" entry)
  file(WRITE ${PROJECT_BINARY_DIR}/debian/entry "  ${entry}\n")
  execute_process(COMMAND fold --spaces --width=76 ${PROJECT_BINARY_DIR}/debian/entry OUTPUT_VARIABLE entry
                  COMMAND_ERROR_IS_FATAL ANY)
  string(REGEX REPLACE " *\n([^ \n])" "\n    \\1" entry "${entry}")
  file(WRITE ${changelog}
       "${PROJECT_NAME} (${PROJECT_VERSION}) unstable; urgency=medium\n\n${entry}\n -- ${CPACK_PACKAGE_CONTACT} <>  ${date}")
  execute_process(COMMAND gzip --best --no-name --force ${changelog} COMMAND_ERROR_IS_FATAL ANY)
  set(changelog ${changelog}.gz)
endif()

set(development_documents cookbook.md guarantees.md markup.md performance.md performance.svg)
set(tools_documents checking.md markup.md)
foreach(component package IN ZIP_LISTS CPACK_COMPONENTS_ALL packages)
  set(folder ${CMAKE_INSTALL_DOCDIR})
  if(CORVANEMARKUP_DEBIAN)
    set(folder ${CMAKE_INSTALL_DATADIR}/doc/${package})
  endif()
  list(TRANSFORM ${component}_documents PREPEND docs/)
  install(FILES ${${component}_documents} ${changelog} DESTINATION ${folder} COMPONENT ${component})
endforeach()

include(CPack)
