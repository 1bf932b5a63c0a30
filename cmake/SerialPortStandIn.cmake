# The Windows toolchain may bring a stand-in for Qt's serial port module (tools/windows/serialport),
# good for building and testing. A release for users is made with Qt's own, or knowingly not.
set(TARVIK_STANDIN_MARK "")
if(Qt5SerialPort_STANDIN)
    if(CMAKE_BUILD_TYPE STREQUAL "Release" AND NOT TARVIK_ALLOW_STANDIN)
        message(FATAL_ERROR
            "Qt's serial port module is a stand-in here, which no release should go out with. Build "
            "the toolchain with Qt's own module (SERIALPORT=module tools/windows/build-toolchain), or "
            "set TARVIK_ALLOW_STANDIN=ON for a release that is marked.")
    endif()
    # Stands in the names of packages and in the program's version resource.
    set(TARVIK_STANDIN_MARK "serialport-standin")
    message(STATUS "Qt's serial port module is a stand-in: this build is marked \"${TARVIK_STANDIN_MARK}\"")
endif()
