# Builds the packages of libraries anew without the scripts that CPack adds.

foreach(package IN LISTS CPACK_PACKAGE_FILES)
  if(package MATCHES "/lib[^/]*[0-9]_[^/]*\\.deb$")
    set(tree ${package}.tree)
    execute_process(COMMAND dpkg-deb --raw-extract ${package} ${tree} COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE ${tree}/DEBIAN/postinst ${tree}/DEBIAN/postrm)
    execute_process(COMMAND dpkg-deb --root-owner-group --build ${tree} ${package} OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(REMOVE_RECURSE ${tree})
  endif()
endforeach()
