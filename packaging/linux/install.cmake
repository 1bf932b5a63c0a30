# The link is relative, so that an installed tree may be moved.
file(RELATIVE_PATH home "/${CMAKE_INSTALL_BINDIR}" "/${TARVIK_HOME}")
file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/bin")
file(CREATE_LINK "${home}/tarvik" "${CMAKE_CURRENT_BINARY_DIR}/bin/tarvik" SYMBOLIC)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/bin/tarvik" DESTINATION "${CMAKE_INSTALL_BINDIR}")

install(FILES "linux/${TARVIK_ID}.desktop" DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
configure_file("linux/${TARVIK_ID}.metainfo.xml.in" "${TARVIK_ID}.metainfo.xml" @ONLY)
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${TARVIK_ID}.metainfo.xml"
        DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
set(icons "${CMAKE_INSTALL_DATADIR}/icons/hicolor")
install(FILES icons/tarvik.svg DESTINATION "${icons}/scalable/apps" RENAME "${TARVIK_ID}.svg")
foreach(size 16 24 32 48 64 128 256)
    install(FILES icons/png/tarvik-${size}.png DESTINATION "${icons}/${size}x${size}/apps"
            RENAME "${TARVIK_ID}.png")
endforeach()
# Rules of packages lie below lib, whatever the libraries' folder is called.
install(FILES linux/60-vexa-tarvik.rules DESTINATION lib/udev/rules.d)
# The papers of the package, in the places where Debian's tools look for them.
set(doc "${CMAKE_INSTALL_DATADIR}/doc/vexa-tarvik")
install(FILES linux/copyright DESTINATION "${doc}")
# install_packed(FILE NAME FOLDER): packed as Debian wants it, the same in each build
function(install_packed file name folder)
    execute_process(COMMAND gzip -9 --no-name --stdout "${file}"
                    OUTPUT_FILE "${CMAKE_CURRENT_BINARY_DIR}/${name}.gz" COMMAND_ERROR_IS_FATAL ANY)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${file}")
    install(FILES "${CMAKE_CURRENT_BINARY_DIR}/${name}.gz" DESTINATION "${folder}")
endfunction()
install_packed("${CMAKE_CURRENT_SOURCE_DIR}/linux/tarvik.1" tarvik.1 "${CMAKE_INSTALL_MANDIR}/man1")
install_packed("${CMAKE_SOURCE_DIR}/CHANGELOG.md" changelog "${doc}")
if(EXISTS "${CMAKE_SOURCE_DIR}/docs/SERIAL.md")
    install(FILES "${CMAKE_SOURCE_DIR}/docs/SERIAL.md" DESTINATION "${doc}")
endif()
