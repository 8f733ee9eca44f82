# What the Debian package holds. The programs, the module of the page window and the pictures of the pages lie in one
# folder, as they do after a build, because the program looks for them beside itself.

include(GNUInstallDirs)
set(KOLIBRI_PROGRAM_DIR lib/kolibri)

install(TARGETS kolibri kolibri-db RUNTIME DESTINATION ${KOLIBRI_PROGRAM_DIR})
install(TARGETS kolibri_web LIBRARY DESTINATION ${KOLIBRI_PROGRAM_DIR})
install(FILES data/Notiz20.jpg data/OK.png DESTINATION ${KOLIBRI_PROGRAM_DIR})
install(PROGRAMS packaging/kolibri.sh DESTINATION ${CMAKE_INSTALL_BINDIR} RENAME kolibri)
install(CODE "
  file(MAKE_DIRECTORY \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}\")
  file(CREATE_LINK ../${KOLIBRI_PROGRAM_DIR}/kolibri-db
       \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}/${CMAKE_INSTALL_BINDIR}/kolibri-db\" SYMBOLIC)")
install(FILES packaging/kolibri.desktop DESTINATION ${CMAKE_INSTALL_DATADIR}/applications)
install(FILES packaging/kolibri.metainfo.xml DESTINATION ${CMAKE_INSTALL_DATADIR}/metainfo)
install(FILES data/kolibri.svg DESTINATION ${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps)
install(FILES LICENSE CHANGELOG.md README.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kolibri)
# Where README.md expects the manual and its pictures.
install(FILES docs/handbuch.md DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kolibri/docs)
install(DIRECTORY docs/bilder DESTINATION ${CMAKE_INSTALL_DATADIR}/doc/kolibri/docs)

set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_PACKAGE_CONTACT "Kolibri maintainers <kolibri@localhost>")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "Office program of an all-day primary school")
set(CPACK_STRIP_FILES ON)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Loaded while the program runs, so no linker tells of them.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "libqt6sql6-sqlite, qt6-qpa-plugins, fonts-liberation")
include(CPack)
