# The program's Debian package: `cpack -G DEB` in the build folder makes it, and
# orvane-publish --package=... offers it on an update server as orvane-setup.deb.
# The program lives in /usr/lib/orvane with its Data/, Languages/ and Help/, because
# it reads them below the folder it starts in; /usr/bin/orvane starts it there.

# The package carries the program's own version, as the update check compares it.
file(STRINGS "${PROJECT_SOURCE_DIR}/net/program_version.h" version_line REGEX "kProgramVersion = ")
string(REGEX MATCH "[0-9]+\\.[0-9]+" ORVANE_PROGRAM_VERSION "${version_line}")

install(TARGETS orvane RUNTIME DESTINATION lib/orvane)
install(DIRECTORY "${PROJECT_SOURCE_DIR}/Data" "${PROJECT_SOURCE_DIR}/Languages" "${PROJECT_SOURCE_DIR}/Help"
        DESTINATION lib/orvane)
install(PROGRAMS "${PROJECT_SOURCE_DIR}/packaging/orvane" DESTINATION bin)
install(TARGETS orvane-cli orvane-publish RUNTIME DESTINATION bin)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/orvane.desktop" DESTINATION share/applications)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME orvane)
set(CPACK_PACKAGE_VERSION "${ORVANE_PROGRAM_VERSION}")
set(CPACK_PACKAGE_CONTACT "Orvane developers <orvane@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Comet ephemeris desk: cometary orbits, ephemerides, close approaches")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_STRIP_FILES ON)
include(CPack)
