# The screen of the offscreen platform: Qt 6 has another one of its own than Qt 5, unless it is told.
set(ORV_OFFSCREEN_PLATFORM offscreen)
if(ORV_QT_MAJOR EQUAL 6)
    string(APPEND ORV_OFFSCREEN_PLATFORM :configfile=${PROJECT_SOURCE_DIR}/tests/support/offscreen.json)
endif()

# orv_add_test(<name> [SOURCE <file>] [INTERNAL | STANDALONE] [X11] [SERIAL] [POISONED] [SCALES <ratio>...] [LIBRARIES <target>...]
#              [ENVIRONMENT <VAR=value>...])
#
# Builds the QtTest program <name> from <name>.cpp (or SOURCE) and registers it with CTest. It runs on the offscreen
# platform, unless X11 says that it needs a real server: then it carries the label "x11" and has the pointer for itself.
#   INTERNAL   links the library's objects instead of the library: for classes that are not exported
#   STANDALONE links nothing of the library: for tests that load it themselves, from the file ORVCOMMONLIB_FILE
#   SERIAL     never beside another test (for tests that count time or processes)
#   POISONED   overwrites freed memory, so that uses of destroyed objects crash; sanitizers do that by themselves
#   SCALES     runs once more for each device pixel ratio, as <name>@<ratio>
function(orv_add_test name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNAL;STANDALONE;X11;SERIAL;POISONED" "SOURCE" "SCALES;LIBRARIES;ENVIRONMENT")
    if(NOT arg_SOURCE)
        set(arg_SOURCE ${name}.cpp)
    endif()
    if(arg_X11 AND WIN32)
        return()
    endif()

    file(STRINGS ${arg_SOURCE} other_main REGEX "^QTEST_.*MAIN|QTest::qExec")
    if(other_main)
        message(FATAL_ERROR "${arg_SOURCE}: \"${other_main}\" lets warnings of Qt pass, see tests/support/testmain.h")
    endif()

    add_executable(${name} ${arg_SOURCE})
    orv_test_defaults(${name})
    target_precompile_headers(${name} REUSE_FROM orv_test_support)
    # Nearly always empty: moc's output for a test is included by the test.
    set_source_files_properties(${CMAKE_CURRENT_BINARY_DIR}/${name}_autogen/mocs_compilation.cpp PROPERTIES
        SKIP_PRECOMPILE_HEADERS ON)
    target_link_libraries(${name} PRIVATE orv_test_support ${ORV_QT}::Test ${ORV_QT}::Widgets ${arg_LIBRARIES})
    if(ORV_SANITIZERS MATCHES thread)
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/threadsanitizer.cpp)
    endif()
    if(arg_POISONED AND NOT ORV_SANITIZERS)
        target_sources(${name} PRIVATE ${PROJECT_SOURCE_DIR}/tests/support/poisonedmemory.cpp)
        target_compile_definitions(${name} PRIVATE ORV_POISONED_MEMORY)
        list(APPEND arg_ENVIRONMENT MALLOC_PERTURB_=213) # has glibc overwrite what Qt's containers give back
    endif()
    if(arg_INTERNAL)
        target_compile_definitions(${name} PRIVATE ORVCOMMONLIB_LIBRARY)
        target_include_directories(${name} PRIVATE ${PROJECT_SOURCE_DIR}/utils/orvcommonlib/internal)
        target_link_libraries(${name} PRIVATE orvcommonlib_objects)
    elseif(arg_STANDALONE)
        target_compile_definitions(${name} PRIVATE ORVCOMMONLIB_FILE="$<TARGET_FILE:orvcommonlib>")
        add_dependencies(${name} orvcommonlib)
    else()
        target_link_libraries(${name} PRIVATE orvcommonlib)
    endif()

    if(arg_X11)
        set(platform xcb)
        list(PREPEND arg_ENVIRONMENT QT_XCB_GL_INTEGRATION=none) # nothing here is drawn with OpenGL, which starts slowly
    elseif(WIN32)
        set(platform windows)
    else()
        set(platform ${ORV_OFFSCREEN_PLATFORM})
    endif()
    set(environment QT_QPA_PLATFORM=${platform} QT_LOGGING_RULES= ${arg_ENVIRONMENT})
    orv_register_test(${name} ${name} "${arg_X11}" "${arg_SERIAL}" "${environment}")
    foreach(scale IN LISTS arg_SCALES)
        orv_register_test(${name}@${scale} ${name} "${arg_X11}" "${arg_SERIAL}"
            "${environment};QT_SCALE_FACTOR=${scale};QT_SCALE_FACTOR_ROUNDING_POLICY=PassThrough")
    endforeach()
endfunction()

# The lists of what needs care under Wine: lines of the form "<name of a test>: <reason>".
foreach(list IN ITEMS exclusions without-display)
    set(file ${PROJECT_SOURCE_DIR}/tests/wine-${list}.txt)
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${file})
    file(STRINGS ${file} ORV_WINE_${list} REGEX "^[^#]")
    list(TRANSFORM ORV_WINE_${list} REPLACE ":.*" "")
endforeach()

function(orv_register_test test_name target x11 serial environment)
    set(timeout 300)
    if(ORV_SANITIZERS OR WIN32)
        set(timeout 900) # the longest draws every page of the gallery
    endif()
    add_test(NAME ${test_name} COMMAND ${target})
    set_tests_properties(${test_name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${timeout})
    if(WIN32 AND test_name IN_LIST ORV_WINE_exclusions)
        set_tests_properties(${test_name} PROPERTIES DISABLED TRUE)
    endif()
    if(WIN32 AND target IN_LIST ORV_WINE_without-display)
        set_property(TEST ${test_name} APPEND PROPERTY ENVIRONMENT ORV_WINE_GRAPHICS=null)
    endif()
    if(x11)
        set_tests_properties(${test_name} PROPERTIES LABELS x11 RESOURCE_LOCK pointer)
    endif()
    if(serial)
        set_tests_properties(${test_name} PROPERTIES RUN_SERIAL TRUE)
    endif()
endfunction()
