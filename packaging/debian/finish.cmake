# Run by cpack on what was installed, before it becomes a package: the documents that every Debian package brings,
# compressed as they are there.
set(root "${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share")
set(documents "${root}/doc/${CPACK_DEBIAN_PACKAGE_NAME}")
file(COPY "${CMAKE_CURRENT_LIST_DIR}/copyright" DESTINATION "${documents}")
configure_file("${CMAKE_CURRENT_LIST_DIR}/changelog" "${documents}/changelog.Debian" COPYONLY)
file(GLOB pages "${root}/man/man1/*.1")
execute_process(COMMAND gzip -9n "${documents}/changelog.Debian" ${pages} COMMAND_ERROR_IS_FATAL ANY)
