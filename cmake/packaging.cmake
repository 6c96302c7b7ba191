# What is installed besides the program, and the Debian package that `cpack` makes of it.
#
# The day of the release, for the documents that name one; its time is noon, UTC.
set(CORVANE_RELEASE_DATE 2026-11-21)
set(CORVANE_RELEASE_TIME "Sat, 21 Nov 2026 12:00:00 +0000")

set(packaging ${PROJECT_SOURCE_DIR}/packaging)
set(made ${PROJECT_BINARY_DIR}/packaging)

install(FILES ${packaging}/corvane.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES ${packaging}/corvane-mime.xml RENAME corvane.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/mime/packages)
install(FILES ${packaging}/corvane.svg
    DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
foreach(size IN ITEMS 16 22 24 32 48 64 128 256 512)
  install(FILES ${packaging}/icons/corvane-${size}.png RENAME corvane.png
      DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps)
endforeach()

configure_file(${packaging}/corvane.metainfo.xml.in ${made}/org.corvane.corvane.metainfo.xml @ONLY)
install(FILES ${made}/org.corvane.corvane.metainfo.xml
    DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)

find_program(CORVANE_GZIP gzip REQUIRED)
configure_file(${packaging}/corvane.1.in ${made}/corvane.1 @ONLY)
add_custom_command(OUTPUT ${made}/corvane.1.gz
    COMMAND ${CORVANE_GZIP} -9nc ${made}/corvane.1 > ${made}/corvane.1.gz
    DEPENDS ${made}/corvane.1 VERBATIM)
add_custom_target(corvane_man ALL DEPENDS ${made}/corvane.1.gz)
install(FILES ${made}/corvane.1.gz DESTINATION ${CMAKE_INSTALL_MANDIR}/man1)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "The Corvane developers")
set(CPACK_PACKAGE_CONTACT "The Corvane developers <corvane@corvane.invalid>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "editor for the vertices of Warcraft III models")
set(CPACK_PACKAGE_DESCRIPTION
    "Corvane edits one geoset of a Warcraft III model in the text format (MDL) at
the level of single vertices: select them in three views, move, rotate, scale,
extrude and clone them, weld, mirror and align them, assign vertex groups, and
move texture coordinates over a picture.

Everything else in the file stays exactly as it was, byte for byte.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_OUTPUT_FILE_PREFIX ${PROJECT_BINARY_DIR}/package)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION graphics)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Dialogs and pages open without them; a Wayland desktop without X needs the plugin.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-image-formats-plugins, qt6-wayland, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_VERSION ${PROJECT_VERSION}-${CPACK_DEBIAN_PACKAGE_RELEASE})
configure_file(${packaging}/debian/changelog.in ${made}/changelog @ONLY)
unset(CPACK_DEBIAN_PACKAGE_VERSION)  # CPack adds the release itself
configure_file(${packaging}/debian/copyright ${made}/copyright COPYONLY)
configure_file(${packaging}/debian/lintian-overrides ${made}/lintian-overrides COPYONLY)
configure_file(${PROJECT_SOURCE_DIR}/CHANGELOG.md ${made}/CHANGELOG.md COPYONLY)
set(CPACK_PRE_BUILD_SCRIPTS ${packaging}/debian/stage.cmake)
set(CPACK_CORVANE_STAGED_TEXTS ${made})
set(CPACK_VERBATIM_VARIABLES ON)
include(CPack)
