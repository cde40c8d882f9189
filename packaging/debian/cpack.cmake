# The .deb. Its dependencies are those of the programs' libraries; fonts and printing are what a clerk needs besides.

set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_MAINTAINER ${CPACK_PACKAGE_CONTACT})
set(CPACK_DEBIAN_PACKAGE_SECTION misc)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS "passwd, qt6-translations-l10n, fonts-noto-cjk | fonts-ipafont-gothic | fonts-japanese-gothic")
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "cups-client, xdg-utils")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA
  ${CMAKE_CURRENT_LIST_DIR}/postinst ${CMAKE_CURRENT_LIST_DIR}/prerm ${CMAKE_CURRENT_LIST_DIR}/postrm)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "A clerk types clock-in and clock-out times; the system measures them against each
employee's work type and fills in break, work time and hours by category. Several
PCs may share one company, whose data lies in encrypted files.
All text on screen is Japanese.")

install(FILES debian/copyright DESTINATION share/doc/rovena)
set(handed_out operations.md operations.ja.md formats.md scale.md windows.md)
list(TRANSFORM handed_out PREPEND ${PROJECT_SOURCE_DIR}/docs/)
install(FILES ${handed_out} DESTINATION share/doc/rovena)
