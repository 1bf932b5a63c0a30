# Version, icon and manifest inside the Windows files, from the project's one version.
set(TARVIK_SHORT_VERSION "${PROJECT_VERSION_MAJOR}.${PROJECT_VERSION_MINOR}.${PROJECT_VERSION_PATCH}")

# tarvik_windows_resource(target FILE description TYPE VFT_APP|VFT_DLL)
function(tarvik_windows_resource target file description type)
    set(TARVIK_RC_NAME "${target}")
    set(TARVIK_RC_FILE "${file}")
    set(TARVIK_RC_DESCRIPTION "${description}")
    set(TARVIK_RC_TYPE "${type}")
    set(TARVIK_RC_FLAGS 0)
    set(TARVIK_RC_SPECIAL "")
    set(TARVIK_RC_ICON "")
    if(TARVIK_STANDIN_MARK)
        set(TARVIK_RC_FLAGS VS_FF_SPECIALBUILD)
        set(TARVIK_RC_SPECIAL "            VALUE \"SpecialBuild\", \"${TARVIK_STANDIN_MARK}\\0\"")
    endif()
    if(type STREQUAL "VFT_APP")
        configure_file("${CMAKE_CURRENT_SOURCE_DIR}/windows/tarvik.manifest.in"
                       "${CMAKE_CURRENT_BINARY_DIR}/tarvik.manifest" @ONLY)
        # Qt takes the window's icon from the resource of this name.
        set(TARVIK_RC_ICON "IDI_ICON1 ICON \"${CMAKE_CURRENT_SOURCE_DIR}/icons/tarvik.ico\"
1 24 \"${CMAKE_CURRENT_BINARY_DIR}/tarvik.manifest\"")
    endif()
    set(resource "${CMAKE_CURRENT_BINARY_DIR}/${target}.rc")
    configure_file("${CMAKE_CURRENT_SOURCE_DIR}/windows/version.rc.in" "${resource}" @ONLY)
    set_property(SOURCE "${resource}" PROPERTY OBJECT_DEPENDS
        "${CMAKE_CURRENT_SOURCE_DIR}/icons/tarvik.ico;${CMAKE_CURRENT_SOURCE_DIR}/windows/tarvik.manifest.in")
    target_sources(${target} PRIVATE "${resource}")
endfunction()

tarvik_windows_resource(tarvik tarvik.exe "Vexa camera control panel" VFT_APP)
tarvik_windows_resource(clallserial clallserial.dll "Camera Link serial library" VFT_DLL)
tarvik_windows_resource(vexa-replay vexa-replay.dll "Chart files for virtual cameras" VFT_DLL)
