# Revision, subject and build date into Revision.h, made anew by each build that finds them
# changed. A source archive carries them in app/logic/Revision.archive, which `git archive` fills
# in; without git and archive the revision is forty zeros.
#
# Included by CMakeLists.txt it adds the target tarvik_revision; run as a script (-P) it writes.
if(CMAKE_SCRIPT_MODE_FILE)
    set(revision "")
    set(subject "")
    execute_process(COMMAND git -C "${SOURCE_DIR}" rev-parse --show-toplevel
                    OUTPUT_VARIABLE top OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    get_filename_component(source "${SOURCE_DIR}" REALPATH)
    if(top STREQUAL source)
        execute_process(COMMAND git -C "${SOURCE_DIR}" log -1 --format=%H
                        OUTPUT_VARIABLE revision OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
        execute_process(COMMAND git -C "${SOURCE_DIR}" log -1 --format=%s
                        OUTPUT_VARIABLE subject OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
    elseif(EXISTS "${SOURCE_DIR}/app/logic/Revision.archive")
        file(STRINGS "${SOURCE_DIR}/app/logic/Revision.archive" lines ENCODING UTF-8)
        list(GET lines 0 revision)
        list(LENGTH lines count)
        if(count GREATER 1)
            list(GET lines 1 subject)
        endif()
    endif()
    if(NOT revision MATCHES "^[0-9a-f]+$")
        set(revision "0000000000000000000000000000000000000000")
        set(subject "no revision known")
    endif()
    # The subject stands inside a raw string literal, where only its closing sequence would hurt.
    string(REPLACE ")tarvik\"" "" subject "${subject}")
    set(ENV{LC_ALL} C)
    set(head "#pragma once\n\n#define TARVIK_REVISION \"${revision}\"\n#define TARVIK_SUBJECT R\"tarvik(${subject})tarvik\"\n")
    if(EXISTS "${OUTPUT}")
        file(READ "${OUTPUT}" old)
        string(FIND "${old}" "${head}" at)
        if(at EQUAL 0)
            return()
        endif()
    endif()
    # SOURCE_DATE_EPOCH, where set, makes the time stamp reproducible.
    string(TIMESTAMP date "%a %b %d %H:%M:%S %Y" UTC)
    file(WRITE "${OUTPUT}" "${head}#define TARVIK_BUILD_DATE \"${date}\"\n")
    return()
endif()

set(TARVIK_GENERATED_DIR "${CMAKE_BINARY_DIR}/generated")
add_custom_target(tarvik_revision
    COMMAND "${CMAKE_COMMAND}" -DSOURCE_DIR=${CMAKE_SOURCE_DIR}
            -DOUTPUT=${TARVIK_GENERATED_DIR}/app/logic/Revision.h
            -P "${CMAKE_CURRENT_LIST_DIR}/GitRevision.cmake"
    BYPRODUCTS "${TARVIK_GENERATED_DIR}/app/logic/Revision.h" VERBATIM)
add_dependencies(tidy_prerequisites tarvik_revision)
