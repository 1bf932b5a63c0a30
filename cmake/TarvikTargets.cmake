# One function for each kind of target, so that a folder's list reads as a table of contents.

# What clang-tidy needs to find before it can read the sources: generated headers.
add_custom_target(tidy_prerequisites)

# tarvik_logic(name SOURCES... [LINK targets...])
# Logic needs no widget, port, file dialog or clock: Qt Core is all that it links.
function(tarvik_logic name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK")
    add_library(${name} STATIC ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    add_dependencies(tidy_prerequisites ${name}_autogen)
    target_link_libraries(${name} PUBLIC tarvik_options Qt5::Core ${arg_LINK})
endfunction()

# tarvik_module(name SOURCES... [LINK targets...] [OBJECT])
# Widgets and back ends. OBJECT: an object library, for files that register themselves and that
# an archive would drop.
function(tarvik_module name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "OBJECT" "" "LINK")
    set(kind STATIC)
    if(arg_OBJECT)
        set(kind OBJECT)
    endif()
    add_library(${name} ${kind} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES AUTOMOC ON)
    add_dependencies(tidy_prerequisites ${name}_autogen)
    tarvik_forms(${name})
    target_link_libraries(${name} PUBLIC tarvik_options Qt5::Widgets ${arg_LINK})
endfunction()

# tarvik_forms(name)
# Gives the target the headers of the forms among its sources. Each is made by a command of its own:
# of those that AUTOUIC makes Ninja learns only while it builds, and would compile what includes a
# changed one in the next build.
function(tarvik_forms name)
    get_target_property(forms ${name} SOURCES)
    list(FILTER forms INCLUDE REGEX "\\.ui$")
    if(NOT forms)
        return()
    endif()
    qt5_wrap_ui(headers ${forms})
    set_source_files_properties(${headers} PROPERTIES SKIP_AUTOMOC ON)
    target_sources(${name} PRIVATE ${headers})
    target_include_directories(${name} PRIVATE "${CMAKE_CURRENT_BINARY_DIR}")
    add_custom_target(${name}_forms DEPENDS ${headers})
    add_dependencies(${name} ${name}_forms)
    add_dependencies(tidy_prerequisites ${name}_forms)
endfunction()

# tarvik_test(name SOURCES... [LINK targets...] [LABELS labels...] [TIMEOUT s] [ARGS args...])
# A Qt Test program; the test is called like the program. It needs no display, runs in a home of
# its own, in the C locale and in a fixed time zone.
function(tarvik_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "LINK;LABELS;ARGS")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES AUTOMOC ON
                          RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests/bin")
    target_link_libraries(${name} PRIVATE tarvik_options Qt5::Test ${arg_LINK})
    target_compile_options(${name} PRIVATE -include "${CMAKE_SOURCE_DIR}/tests/support/tcPatience.h")
    if("clallserial" IN_LIST arg_LINK OR "Clallserial::Clallserial" IN_LIST arg_LINK)
        set_target_properties(${name} PROPERTIES TARVIK_SERIAL_LIBRARY Clallserial::Clallserial)
    endif()
    if(WIN32)
        target_sources(${name} PRIVATE "${CMAKE_SOURCE_DIR}/tests/support/tcWindowsSurroundings.cpp")
    endif()
    add_test(NAME ${name} COMMAND ${name} ${arg_ARGS})
    set(folders "")
    if("usbtc08_sim" IN_LIST arg_LINK)
        list(APPEND folders "${CMAKE_BINARY_DIR}/sim/usbtc08")
    endif()
    tarvik_test_environment(${name} ${folders})
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}")
    tarvik_test_timeout(${name} ${arg_TIMEOUT})
endfunction()

# tarvik_plain_test(name SOURCES... [LINK targets...] [TIMEOUT s])
# The same for a program without Qt, as the serial library and the virtual camera use.
function(tarvik_plain_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "TIMEOUT" "LINK")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests/bin")
    target_link_libraries(${name} PRIVATE tarvik_options ${arg_LINK})
    add_test(NAME ${name} COMMAND ${name})
    tarvik_test_environment(${name})
    tarvik_test_timeout(${name} ${arg_TIMEOUT})
endfunction()

# tarvik_test_timeout(name [seconds])
# When a test counts as hanging. Sanitizers make arithmetic several times slower, and a busy computer
# does the rest.
function(tarvik_test_timeout name)
    set(seconds ${ARGN})
    if(NOT seconds)
        set(seconds 120)
    endif()
    if(TARVIK_SANITIZE)
        math(EXPR seconds "4 * ${seconds}")
    endif()
    set_tests_properties(${name} PROPERTIES TIMEOUT ${seconds})
endfunction()

# tarvik_test_environment(name [folders...])
# Wine has homes of its own, and Windows programs find the project's libraries by the path: those of
# the program, and what is in further folders.
function(tarvik_test_environment name)
    set(home "${CMAKE_BINARY_DIR}/tests/home/${name}")
    file(MAKE_DIRECTORY "${home}")
    # No system-wide settings: what one run of a test stores there, the next would restore.
    set(environment "HOME=${home}" "XDG_CONFIG_HOME=${home}/.config"
        "XDG_CONFIG_DIRS=/dev/null/none" "XDG_DATA_HOME=${home}/.local/share"
        "QT_QPA_PLATFORM=offscreen" "LC_ALL=C.UTF-8" "TZ=Europe/Berlin" "QT_LOGGING_RULES="
        "ASAN_OPTIONS=detect_leaks=1:detect_stack_use_after_return=1:new_delete_type_mismatch=0"
        "LSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/lsan.supp:print_suppressions=0"
        "TSAN_OPTIONS=suppressions=${CMAKE_SOURCE_DIR}/tests/support/tsan.supp:halt_on_error=1"
        "UBSAN_OPTIONS=print_stacktrace=1")
    if(WIN32)
        set(path "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}" ${ARGN})
        if(CMAKE_CROSSCOMPILING)
            list(JOIN path ":" path)
            list(APPEND environment "WINE_RUN_PATH=${path}")
        else()
            list(TRANSFORM path PREPEND "PATH=path_list_prepend:")
            set_tests_properties(${name} PROPERTIES ENVIRONMENT_MODIFICATION "${path}")
        endif()
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}")
endfunction()

# tarvik_bench(name SOURCES... [LINK targets...])
# A benchmark: never part of the test run; it prints ratios of one run.
function(tarvik_bench name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LINK")
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    set_target_properties(${name} PROPERTIES AUTOMOC ON
                          RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/bench/bin")
    target_link_libraries(${name} PRIVATE tarvik_options ${arg_LINK})
endfunction()
