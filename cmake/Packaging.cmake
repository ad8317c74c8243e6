# What `cmake --install` puts where, and the Debian package that `cpack -G DEB` makes of it.
include(GNUInstallDirs)
install(TARGETS tsms tsms-db tsms-gateway tsms-start RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}")

if(UNIX)
  install(FILES "${CMAKE_SOURCE_DIR}/src/toolkit/pictures/application.svg" RENAME tsms.svg
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps")
  install(FILES packaging/tsms-start.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
  foreach(program tsms tsms-db tsms-gateway tsms-start)
    install(FILES "${CMAKE_SOURCE_DIR}/packaging/man/${program}.1" DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
  endforeach()
endif()

# The demo goes with the simulated gateway only: a program that was built for a real one would call that.
set(TSMS_DEMO OFF)
if(UNIX AND TSMS_GATEWAY_URL STREQUAL "http://127.0.0.1:8790")
  set(TSMS_DEMO ON)
  file(RELATIVE_PATH TSMS_DATA_FROM_BIN "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_DATADIR}/tsms")
  file(RELATIVE_PATH TSMS_LIBEXEC_FROM_BIN "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBEXECDIR}/tsms")
  configure_file(packaging/tsms-demo.in "${CMAKE_BINARY_DIR}/packaging/tsms-demo" @ONLY)
  install(PROGRAMS "${CMAKE_BINARY_DIR}/packaging/tsms-demo" DESTINATION "${CMAKE_INSTALL_BINDIR}")
  install(TARGETS tsms-notice RUNTIME DESTINATION "${CMAKE_INSTALL_LIBEXECDIR}/tsms")
  install(FILES scripts/demo.sh DESTINATION "${CMAKE_INSTALL_DATADIR}/tsms")
  install(FILES packaging/tsms-demo.desktop DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
  install(FILES packaging/man/tsms-demo.1 DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
endif()

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_VENDOR "tsms developers")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "write, send and account for short text messages")
file(READ packaging/debian/description CPACK_DEBIAN_PACKAGE_DESCRIPTION)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_PRE_BUILD_SCRIPTS "${CMAKE_SOURCE_DIR}/packaging/debian/finish.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_NAME tsms)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER "tsms developers <tsms@example.kr>")
set(CPACK_DEBIAN_PACKAGE_SECTION net)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What the programs are linked with is found by itself. The rest of the first list is loaded at its first use.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS
  "libcurl4, libodbc2, libsecret-1-0, fonts-nanum, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "tdsodbc, xdg-utils, libreoffice-calc | gnumeric")
include(CPack)
