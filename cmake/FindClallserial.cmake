# The Camera Link serial library that the panel links, as the target Clallserial::Clallserial: a
# grabber maker's import library where CLALLSERIAL_LIBRARY names one, else the one that comes with
# the panel.
set(CLALLSERIAL_LIBRARY "" CACHE FILEPATH "A grabber maker's own clallserial to link instead of ours")
if(NOT TARGET Clallserial::Clallserial)
    if(CLALLSERIAL_LIBRARY)
        add_library(Clallserial::Clallserial UNKNOWN IMPORTED)
        set_target_properties(Clallserial::Clallserial PROPERTIES IMPORTED_LOCATION "${CLALLSERIAL_LIBRARY}")
    else()
        add_library(Clallserial::Clallserial ALIAS clallserial)
    endif()
endif()
set(Clallserial_FOUND TRUE)
