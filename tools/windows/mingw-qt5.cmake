# CMake toolchain file: 64-bit Windows programs on Debian, with mingw-w64 (posix threads) and a
# prefix of Qt 5 and Qwt as build-toolchain makes it.
#
# The prefix is named by the CMake variable MINGW_QT5_PREFIX or by the environment variable of the
# same name.
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

if(NOT MINGW_QT5_PREFIX)
    set(MINGW_QT5_PREFIX "$ENV{MINGW_QT5_PREFIX}")
endif()
if(NOT EXISTS "${MINGW_QT5_PREFIX}/lib/cmake/Qt5/Qt5Config.cmake")
    message(FATAL_ERROR "MINGW_QT5_PREFIX ('${MINGW_QT5_PREFIX}') names no Qt 5 for Windows. "
                        "tools/windows/build makes one and configures with it.")
endif()
get_filename_component(MINGW_QT5_PREFIX "${MINGW_QT5_PREFIX}" ABSOLUTE)
set(MINGW_QT5_PREFIX "${MINGW_QT5_PREFIX}" CACHE PATH "Qt 5 and Qwt built for 64-bit Windows")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MINGW_QT5_PREFIX)

# The names without "-posix" may mean the variant with Windows threads, which lacks std::thread.
set(MINGW_TRIPLET x86_64-w64-mingw32)
set(CMAKE_C_COMPILER ${MINGW_TRIPLET}-gcc-posix)
set(CMAKE_CXX_COMPILER ${MINGW_TRIPLET}-g++-posix)
set(CMAKE_RC_COMPILER ${MINGW_TRIPLET}-windres)

# Programs of this machine, libraries of the other one; the prefix is looked into as if it were "/".
set(CMAKE_FIND_ROOT_PATH "${MINGW_QT5_PREFIX}" /usr/${MINGW_TRIPLET})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
set(CMAKE_PREFIX_PATH "/")

# pkg-config knows the libraries of this machine only.
set(PKG_CONFIG_EXECUTABLE "" CACHE FILEPATH "Not for the other machine's libraries")

# Tests run through Wine.
set(CMAKE_CROSSCOMPILING_EMULATOR "${CMAKE_CURRENT_LIST_DIR}/wine-run" --prefix "${MINGW_QT5_PREFIX}")
