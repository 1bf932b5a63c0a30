set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE ${PROJECT_VERSION_TWEAK})
set(CPACK_DEBIAN_PACKAGE_SECTION science)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://quillon.example/)
# The shared libraries are found by dpkg-shlibdeps; the serial library is the package's own.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS_PRIVATE_DIRS "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}")
# A window on X11 or Wayland, files opened by the desktop, Qt's own words in German.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "xdg-utils, qttranslations5-l10n")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "qtwayland5")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/linux/postinst"
                                       "${CMAKE_CURRENT_SOURCE_DIR}/linux/postrm")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)

string(TIMESTAMP date "%a, %d %b %Y %H:%M:%S +0000" UTC)
configure_file("${CMAKE_CURRENT_SOURCE_DIR}/linux/changelog.in" changelog.Debian @ONLY)
install_packed("${CMAKE_CURRENT_BINARY_DIR}/changelog.Debian" changelog.Debian
               "${CMAKE_INSTALL_DATADIR}/doc/vexa-tarvik")
