set(CPACK_GENERATOR "ZIP;NSIS")
set(mark "")
if(TARVIK_STANDIN_MARK)
    set(mark "-${TARVIK_STANDIN_MARK}")
endif()
set(CPACK_PACKAGE_FILE_NAME "vexa-tarvik-${version}-win64${mark}")
set(CPACK_PACKAGE_INSTALL_DIRECTORY "Vexa Tarvik")
set(CPACK_PACKAGE_INSTALL_REGISTRY_KEY "Vexa Tarvik")
set(CPACK_PACKAGE_EXECUTABLES tarvik "Vexa Tarvik")

set(CPACK_NSIS_PACKAGE_NAME "Vexa Tarvik")
set(CPACK_NSIS_DISPLAY_NAME "Vexa Tarvik ${version}")
# A 64-bit installer for a 64-bit program. The generator would trim the branding text, which only
# the Windows build of the installer compiler can.
set(CPACK_NSIS_DEFINES "Target amd64-unicode\nBrandingText \"Vexa Tarvik ${version}\"
!include \"${CMAKE_CURRENT_SOURCE_DIR}/windows/installer.nsh\"")
# The generator would replace an installed version too, but a silent run of its code waits at a box
# where that version's folder was deleted by hand.
set(CPACK_NSIS_ENABLE_UNINSTALL_BEFORE_INSTALL OFF)
set(CPACK_NSIS_EXTRA_PREINSTALL_COMMANDS "!insertmacro ReplaceInstalledVersion")
set(CPACK_NSIS_EXTRA_UNINSTALL_COMMANDS "!insertmacro AskToCloseThePanel \"$INSTDIR\"")
set(CPACK_NSIS_INSTALL_ROOT "$PROGRAMFILES64")
set(CPACK_NSIS_EXECUTABLES_DIRECTORY .)
set(CPACK_NSIS_MUI_ICON "${CMAKE_CURRENT_SOURCE_DIR}/icons/tarvik.ico")
set(CPACK_NSIS_MUI_UNIICON "${CPACK_NSIS_MUI_ICON}")
set(CPACK_NSIS_INSTALLED_ICON_NAME tarvik.exe)
set(CPACK_NSIS_URL_INFO_ABOUT https://quillon.example/)
set(CPACK_NSIS_CONTACT support@quillon.example)
set(CPACK_NSIS_MANIFEST_DPI_AWARE ON)
set(CPACK_NSIS_COMPRESSOR "/SOLID lzma")
