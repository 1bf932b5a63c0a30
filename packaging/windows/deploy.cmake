# Run at installation, with FOLDER and QT_PREFIX set: brings the libraries that the program needs,
# and Qt's plugins, beside it. What the prefix does not hold is Windows' own.
set(plugins platforms/qwindows.dll styles/qwindowsvistastyle.dll imageformats/qico.dll)
if(EXISTS "${QT_PREFIX}/plugins/printsupport/windowsprintersupport.dll")
    list(APPEND plugins printsupport/windowsprintersupport.dll)
endif()
set(files "")
foreach(plugin IN LISTS plugins)
    get_filename_component(kind "${plugin}" DIRECTORY)
    file(INSTALL "${QT_PREFIX}/plugins/${plugin}" DESTINATION "${FOLDER}/plugins/${kind}")
    list(APPEND files "${FOLDER}/plugins/${plugin}")
endforeach()

set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
set(CMAKE_GET_RUNTIME_DEPENDENCIES_COMMAND "${OBJDUMP}")
file(GET_RUNTIME_DEPENDENCIES
    EXECUTABLES "${FOLDER}/tarvik.exe" LIBRARIES ${files}
    RESOLVED_DEPENDENCIES_VAR found UNRESOLVED_DEPENDENCIES_VAR system
    DIRECTORIES "${FOLDER}" "${QT_PREFIX}/bin")
foreach(library IN LISTS found)
    get_filename_component(folder "${library}" DIRECTORY)
    if(NOT folder STREQUAL FOLDER)
        file(INSTALL "${library}" DESTINATION "${FOLDER}")
    endif()
endforeach()
foreach(library IN LISTS system)
    if(library MATCHES "^(Qt5|qwt|lib|clallserial|usbtc08)")
        message(FATAL_ERROR "${library} is needed and was not found")
    endif()
endforeach()
