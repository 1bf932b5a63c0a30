# How everything is compiled: language level, warnings, sanitizers, Qt's definitions.
# Linked into each target through tarvik_options.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_C_STANDARD 11)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

# Programs and libraries side by side, so that a build folder runs as an installed folder does.
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bin")

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Debug CACHE STRING "Build type" FORCE)
endif()

# A second build of the same sources, in whatever folder, costs next to nothing.
find_program(TARVIK_CCACHE ccache)
if(TARVIK_CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
    set(launcher "${CMAKE_COMMAND}" -E env "CCACHE_BASEDIR=${CMAKE_SOURCE_DIR}" CCACHE_NOHASHDIR=1
        "${TARVIK_CCACHE}")
    set(CMAKE_C_COMPILER_LAUNCHER ${launcher})
    set(CMAKE_CXX_COMPILER_LAUNCHER ${launcher})
endif()

add_library(tarvik_options INTERFACE)
target_include_directories(tarvik_options INTERFACE "${CMAKE_SOURCE_DIR}")
target_compile_options(tarvik_options INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor
                       -Woverloaded-virtual -Wcast-align -Wold-style-cast -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "Clang")
    # Qt's macros of this generation trip over clang's view of offsetof and of unused lambdas.
    target_compile_options(tarvik_options INTERFACE -Wno-gnu-zero-variadic-macro-arguments)
endif()
target_compile_definitions(tarvik_options INTERFACE QT_NO_KEYWORDS QT_NO_CAST_TO_ASCII
                           QT_NO_URL_CAST_FROM_STRING QT_DEPRECATED_WARNINGS
                           QT_NO_NARROWING_CONVERSIONS_IN_CONNECT)

if(TARVIK_SANITIZE)
    add_compile_options(-fsanitize=${TARVIK_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    add_link_options(-fsanitize=${TARVIK_SANITIZE})
endif()

# mold links a test in a fraction of the time; nobody needs it.
find_program(TARVIK_MOLD mold)
if(TARVIK_MOLD AND NOT CMAKE_CROSSCOMPILING AND NOT CMAKE_BUILD_TYPE STREQUAL "Release")
    add_link_options(-fuse-ld=mold)
endif()
