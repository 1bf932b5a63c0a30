# Packages: cpack in a build folder makes a .deb on Linux, a zip and an installer for Windows.
set(version "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}")
set(CPACK_PACKAGE_NAME vexa-tarvik)
set(CPACK_PACKAGE_VENDOR "Quillon LLC")
set(CPACK_PACKAGE_CONTACT "Quillon LLC <support@quillon.example>")
set(CPACK_PACKAGE_VERSION "${version}")
set(CPACK_PACKAGE_VERSION_MAJOR ${PROJECT_VERSION_MAJOR})
set(CPACK_PACKAGE_VERSION_MINOR ${PROJECT_VERSION_MINOR})
set(CPACK_PACKAGE_VERSION_PATCH ${PROJECT_VERSION_PATCH})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "control panel for Vexa machine-vision cameras")
set(CPACK_PACKAGE_DESCRIPTION
"Drives the Vexa machine-vision cameras through the Camera Link serial line of
a frame grabber: commands, presets and script files, every reply, and a live
strip chart of temperatures, humidity, cooler and supply rails beside external
thermometers. Virtual cameras come with it, to try it without hardware.")
set(CPACK_RESOURCE_FILE_LICENSE "${CMAKE_SOURCE_DIR}/LICENSE")
set(CPACK_PACKAGE_DIRECTORY "${CMAKE_BINARY_DIR}/packages")
set(CPACK_STRIP_FILES ON)
set(CPACK_VERBATIM_VARIABLES ON)

if(WIN32)
    include("${CMAKE_CURRENT_LIST_DIR}/windows/CPack.cmake")
else()
    include("${CMAKE_CURRENT_LIST_DIR}/linux/CPack.cmake")
endif()
include(CPack)
