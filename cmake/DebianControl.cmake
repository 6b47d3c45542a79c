# Builds the Debian packages anew: without the scripts that CPack adds, with a symbols file, and stripped as Debian strips.

foreach(package IN LISTS CPACK_PACKAGE_FILES)
  if(NOT package MATCHES "/([^/_]+)_[^/]*\\.deb$")
    continue()
  endif()
  set(name ${CMAKE_MATCH_1})
  set(tree ${package}.tree)
  execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
  file(GLOB_RECURSE binaries ${tree}/usr/bin/* ${tree}/usr/lib/*.so.*.*)
  if(binaries)
    execute_process(COMMAND strip --remove-section=.comment ${binaries} COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND sh -c "find usr -type f | LC_ALL=C sort | xargs md5sum >DEBIAN/md5sums" WORKING_DIRECTORY ${tree}
                    COMMAND_ERROR_IS_FATAL ANY)
  endif()
  if(name MATCHES "^lib.*[0-9]$")
    # Only minor versions add symbols, so a program that was built with this one runs on any of its patch versions. Without
    # an earlier file, dpkg-gensymbols warns.
    execute_process(
      COMMAND dpkg-gensymbols -q -p${name} -v${CPACK_PACKAGE_VERSION_MAJOR}.${CPACK_PACKAGE_VERSION_MINOR} -P${tree}
              -O
      COMMAND sed "/^lib/a * Build-Depends-Package: lib${CPACK_PACKAGE_NAME}-dev"
      OUTPUT_FILE ${tree}/DEBIAN/symbols ERROR_QUIET COMMAND_ERROR_IS_FATAL ANY)
  endif()
  execute_process(COMMAND dpkg-deb --root-owner-group --build ${tree} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
  file(REMOVE_RECURSE ${tree})
endforeach()
