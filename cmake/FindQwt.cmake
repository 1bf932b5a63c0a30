# Qwt as the target Qwt::Qwt. Debian calls the library qwt-qt5, its own build qwt.
find_path(QWT_INCLUDE_DIR qwt_plot.h PATH_SUFFIXES qwt qwt-qt5)
find_library(QWT_LIBRARY NAMES qwt-qt5 qwt)
if(QWT_INCLUDE_DIR AND EXISTS "${QWT_INCLUDE_DIR}/qwt_global.h")
    file(STRINGS "${QWT_INCLUDE_DIR}/qwt_global.h" line REGEX "QWT_VERSION_STR")
    string(REGEX REPLACE ".*\"([0-9.]+)\".*" "\\1" QWT_VERSION "${line}")
endif()
include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(Qwt REQUIRED_VARS QWT_LIBRARY QWT_INCLUDE_DIR VERSION_VAR QWT_VERSION)
if(Qwt_FOUND AND NOT TARGET Qwt::Qwt)
    add_library(Qwt::Qwt INTERFACE IMPORTED)
    set_target_properties(Qwt::Qwt PROPERTIES
        INTERFACE_LINK_LIBRARIES "${QWT_LIBRARY};Qt5::Widgets"
        INTERFACE_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}"
        INTERFACE_SYSTEM_INCLUDE_DIRECTORIES "${QWT_INCLUDE_DIR}")
    if(WIN32)
        set_target_properties(Qwt::Qwt PROPERTIES INTERFACE_COMPILE_DEFINITIONS QWT_DLL)
    endif()
endif()
mark_as_advanced(QWT_INCLUDE_DIR QWT_LIBRARY)
