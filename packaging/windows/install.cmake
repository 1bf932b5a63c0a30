# Everything beside the program: nothing has to be installed on the computer before.
install(FILES windows/qt.conf DESTINATION .)
install(FILES "${CMAKE_SOURCE_DIR}/LICENSE" DESTINATION licences RENAME Vexa-Tarvik.txt)
install(FILES windows/third-party.txt DESTINATION licences)
# The texts that the libraries' licences ask to go along, as this machine has them.
foreach(text LGPL-3 LGPL-2.1 GPL-3)
    install(FILES /usr/share/common-licenses/${text} DESTINATION licences RENAME ${text}.txt OPTIONAL)
endforeach()
# Qt's own words in the languages that the panel speaks, for the buttons of its boxes.
install(FILES /usr/share/qt5/translations/qtbase_de.qm DESTINATION translations OPTIONAL)
install(CODE "
    set(FOLDER \"\${CMAKE_INSTALL_PREFIX}\")
    set(QT_PREFIX \"${MINGW_QT5_PREFIX}\")
    set(OBJDUMP \"${CMAKE_OBJDUMP}\")")
install(SCRIPT windows/deploy.cmake)
