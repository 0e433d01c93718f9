# The tests of the installed package: it is put into a folder of its own, and the projects under tests/consumer use it
# the way a client would.

set(package ${PROJECT_BINARY_DIR}/install-test)
string(REPLACE ";" "\\;" consumer_launcher "${CMAKE_CXX_COMPILER_LAUNCHER}")
set(consumer_options "-DCMAKE_CXX_COMPILER_LAUNCHER=${consumer_launcher}" -DCONSUMER_QT_MAJOR=${ORV_QT_MAJOR})
if(ORV_SANITIZERS)
    list(APPEND consumer_options -DCMAKE_CXX_FLAGS=-fsanitize=${ORV_SANITIZERS})
endif()
if(CMAKE_TOOLCHAIN_FILE)
    list(APPEND consumer_options -DCMAKE_TOOLCHAIN_FILE=${CMAKE_TOOLCHAIN_FILE} -DORV_WINDOWS_QT=${ORV_WINDOWS_QT})
    set(consumer_platform windows)
    set(cpack -DCPACK=${CMAKE_CPACK_COMMAND})
else()
    list(APPEND consumer_options -DCMAKE_CXX_COMPILER=${CMAKE_CXX_COMPILER})
    set(consumer_platform offscreen)
endif()

# orv_add_consumer_test(<name> <folder under tests> [STATIC] [PROGRAM <name>] [OPTIONS <-DVAR=value>...])
# Configures and builds a project against the package, or against that of the static library, then runs the program that
# it makes.
function(orv_add_consumer_test name folder)
    cmake_parse_arguments(PARSE_ARGV 2 arg "STATIC" "PROGRAM" "OPTIONS")
    set(fixture package)
    if(arg_STATIC)
        set(package ${static_package})
        set(fixture static_package)
    endif()
    set(build_folder ${PROJECT_BINARY_DIR}/consumers/${name})
    if(arg_PROGRAM)
        set(run --test-command ${CMAKE_CROSSCOMPILING_EMULATOR}
            ${build_folder}/${arg_PROGRAM}${CMAKE_EXECUTABLE_SUFFIX})
    endif()
    add_test(NAME ${name} COMMAND ${CMAKE_CTEST_COMMAND}
        --build-and-test ${PROJECT_SOURCE_DIR}/tests/${folder} ${build_folder}
        --build-generator ${CMAKE_GENERATOR}
        --build-options -DCMAKE_PREFIX_PATH=${package} ${consumer_options} ${arg_OPTIONS}
        ${run})
    set_tests_properties(${name} PROPERTIES
        FIXTURES_REQUIRED ${fixture}
        ENVIRONMENT "QT_QPA_PLATFORM=${consumer_platform};PKG_CONFIG_PATH=${package}/${CMAKE_INSTALL_LIBDIR}/pkgconfig"
        TIMEOUT 300)
endfunction()

add_test(NAME package_install COMMAND ${CMAKE_COMMAND}
    -DBUILD=${PROJECT_BINARY_DIR} -DPREFIX=${package} ${cpack} -P ${PROJECT_SOURCE_DIR}/tests/consumer/install.cmake)
set_tests_properties(package_install PROPERTIES FIXTURES_SETUP package)

orv_add_consumer_test(package_consumer consumer PROGRAM consumer OPTIONS -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE})

# The examples are built once each; tests/examples runs them.
foreach(example IN ITEMS combo hotkey livestudio mask messages slider theme toolbutton)
    orv_add_consumer_test(package_example_${example} ../examples/${example}
        OPTIONS -DCMAKE_BUILD_TYPE=Release -DCMAKE_UNITY_BUILD=ON -DQT_DEFAULT_MAJOR_VERSION=${ORV_QT_MAJOR})
    set_tests_properties(package_example_${example} PROPERTIES FIXTURES_SETUP example_${example})
endforeach()
find_package(PkgConfig QUIET)
if(PkgConfig_FOUND AND NOT CMAKE_CROSSCOMPILING)
    orv_add_consumer_test(package_pkg_config consumer PROGRAM consumer
        OPTIONS -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DCONSUMER_WITH_PKG_CONFIG=ON)
endif()

# orv_add_qmake_test(<name> <prefix> <fixture>): the same client as a project of qmake.
function(orv_add_qmake_test name prefix fixture)
    find_program(ORV_QMAKE_${ORV_QT_MAJOR} NAMES qmake-qt${ORV_QT_MAJOR} qmake${ORV_QT_MAJOR} qmake)
    mark_as_advanced(ORV_QMAKE_${ORV_QT_MAJOR})
    if(ORV_SANITIZERS OR CMAKE_CROSSCOMPILING OR NOT ORV_QMAKE_${ORV_QT_MAJOR})
        return()
    endif()
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -DQMAKE=${ORV_QMAKE_${ORV_QT_MAJOR}}
        -DFEATURES=${prefix}/${CMAKE_INSTALL_LIBDIR}/qt${ORV_QT_MAJOR}/mkspecs/features
        -DLIBRARIES=${prefix}/${CMAKE_INSTALL_LIBDIR} -DBUILD=${PROJECT_BINARY_DIR}/consumers/${name}
        -DPICTURES=${prefix}/${CMAKE_INSTALL_DATADIR}/${ORV_PACKAGE}/orvcommonlib_client_pictures.rcc
        -P ${PROJECT_SOURCE_DIR}/tests/consumer/qmake.cmake)
    set_tests_properties(${name} PROPERTIES FIXTURES_REQUIRED ${fixture} TIMEOUT 300
        ENVIRONMENT "QT_QPA_PLATFORM=${consumer_platform}")
endfunction()
orv_add_qmake_test(package_qmake ${package} package)

# The static library is a build of its own, which is made and used where packages are.
if(ORV_HARDENING AND ORV_LIBRARY_TYPE STREQUAL SHARED)
    set(static_package ${PROJECT_BINARY_DIR}/install-test-static)
    add_test(NAME package_static_install COMMAND ${CMAKE_CTEST_COMMAND}
        --build-and-test ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}/consumers/static
        --build-generator ${CMAKE_GENERATOR} --build-target install
        --build-options -DBUILD_SHARED_LIBS=OFF -DORV_QT_MAJOR=${ORV_QT_MAJOR} -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE}
            -DCMAKE_INSTALL_PREFIX=${static_package} -DORV_BUILD_TESTS=OFF -DORV_BUILD_GALLERY=OFF
            -DORV_BUILD_BENCHMARKS=OFF ${consumer_options})
    set_tests_properties(package_static_install PROPERTIES FIXTURES_SETUP static_package TIMEOUT 900)
    orv_add_consumer_test(package_static_consumer consumer STATIC PROGRAM consumer
        OPTIONS -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE})
    if(PkgConfig_FOUND AND NOT CMAKE_CROSSCOMPILING)
        orv_add_consumer_test(package_static_pkg_config consumer STATIC PROGRAM consumer
            OPTIONS -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DCONSUMER_WITH_PKG_CONFIG=ON)
    endif()
    orv_add_qmake_test(package_static_qmake ${static_package} static_package)
endif()

# Which of two packages a client finds: the version files of both, whichever this build is for.
foreach(ORV_QT_MAJOR IN ITEMS 5 6)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/orvcommonlibConfigVersion.cmake.in
        ${PROJECT_BINARY_DIR}/choice/qt${ORV_QT_MAJOR}/orvcommonlibConfigVersion.cmake @ONLY)
endforeach()
add_test(NAME package_choice COMMAND ${CMAKE_COMMAND} -G ${CMAKE_GENERATOR} -DPACKAGES=${PROJECT_BINARY_DIR}/choice
    -S ${PROJECT_SOURCE_DIR}/tests/consumer/choice -B ${PROJECT_BINARY_DIR}/consumers/choice)

orv_add_consumer_test(package_components consumer/components)

# The library as a part of another project, whose settings it leaves alone. Configured only; where packages are made, one such
# project is built and run for each kind of library.
function(orv_add_parent_test name)
    set(build_folder ${PROJECT_BINARY_DIR}/consumers/${name})
    add_test(NAME ${name} COMMAND ${CMAKE_COMMAND} -G ${CMAKE_GENERATOR} ${consumer_options} ${ARGN}
        -DCMAKE_BUILD_TYPE=Debug -DLIBRARY_SOURCES=${PROJECT_SOURCE_DIR}
        -S ${PROJECT_SOURCE_DIR}/tests/consumer/parent -B ${build_folder})
endfunction()
orv_add_parent_test(package_in_parent)
orv_add_parent_test(package_in_parent_static -DSHARED=OFF)
orv_add_parent_test(package_in_parent_fetched -DFETCHED=ON -DSHARED=ON)
if(ORV_HARDENING AND NOT CMAKE_CROSSCOMPILING)
    foreach(name IN ITEMS package_in_parent_static package_in_parent_fetched)
        set(build_folder ${PROJECT_BINARY_DIR}/consumers/${name})
        add_test(NAME ${name}_build COMMAND ${CMAKE_COMMAND} --build ${build_folder} --target program)
        add_test(NAME ${name}_run COMMAND ${build_folder}/programs/program)
        set_tests_properties(${name} PROPERTIES FIXTURES_SETUP ${name}_configured)
        set_tests_properties(${name}_build PROPERTIES FIXTURES_REQUIRED ${name}_configured FIXTURES_SETUP ${name}_built
            TIMEOUT 900)
        set_tests_properties(${name}_run PROPERTIES FIXTURES_REQUIRED ${name}_built
            ENVIRONMENT QT_QPA_PLATFORM=${consumer_platform})
    endforeach()
endif()

# What a header says does not depend on sanitizers.
if(NOT ORV_SANITIZERS)
    orv_add_consumer_test(package_headers consumer/headers)
    find_program(ORV_CLANG clang++)
    mark_as_advanced(ORV_CLANG)
    if(ORV_CLANG AND CMAKE_CXX_COMPILER_ID STREQUAL GNU AND NOT CMAKE_CROSSCOMPILING)
        orv_add_consumer_test(package_headers_clang consumer/headers
            OPTIONS -DCMAKE_CXX_COMPILER=${ORV_CLANG} -DHEADERS_TOGETHER=ON)
        # What Microsoft's compiler takes, as far as clang can tell on another system, with the libraries of that one.
        orv_add_consumer_test(package_headers_msvc consumer/headers
            OPTIONS -DCMAKE_CXX_COMPILER=${ORV_CLANG} -DHEADERS_TOGETHER=ON
            "-DCMAKE_CXX_FLAGS=-fms-compatibility -fms-compatibility-version=19.30 -fms-extensions \
-fdelayed-template-parsing -U_MSC_VER -fgnuc-version=4.2.1 -D__STRICT_ANSI__")
    endif()
endif()

# What Windows tells of the DLL, what debuggers find in the one that has not been stripped, and the gallery in a folder of its
# own on a machine that has no Qt.
if(WIN32 AND CMAKE_CROSSCOMPILING)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_test(NAME package_version_resource COMMAND ${Python3_EXECUTABLE}
        ${PROJECT_SOURCE_DIR}/tests/consumer/check_version_resource.py --version ${PROJECT_VERSION}
        --text ProductName=orvcommonlib --text "FileDescription=${PROJECT_DESCRIPTION} (Qt ${ORV_QT_MAJOR})"
        --text OriginalFilename=${ORV_PACKAGE}.dll ${package}/${CMAKE_INSTALL_BINDIR}/${ORV_PACKAGE}.dll)
    add_test(NAME package_symbols COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DPACKAGE=${package}
        -DDLL=${CMAKE_INSTALL_BINDIR}/${ORV_PACKAGE}.dll -DOBJCOPY=${CMAKE_OBJCOPY} -DOBJDUMP=${CMAKE_OBJDUMP}
        -P ${PROJECT_SOURCE_DIR}/tests/consumer/symbols.cmake)
    set_tests_properties(package_version_resource package_symbols PROPERTIES FIXTURES_REQUIRED package)
    add_test(NAME package_debug_postfix COMMAND ${CMAKE_COMMAND} -DSOURCES=${PROJECT_SOURCE_DIR}
        -DBUILD=${PROJECT_BINARY_DIR}/consumers/debug -DGENERATOR=${CMAKE_GENERATOR} -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}
        -DORV_WINDOWS_QT=${ORV_WINDOWS_QT} -DPACKAGE=${ORV_PACKAGE}
        -P ${PROJECT_SOURCE_DIR}/tests/consumer/debug_postfix.cmake)
    if(TARGET gallery)
        add_test(NAME package_gallery COMMAND ${CMAKE_COMMAND} -DBUILD=${PROJECT_BINARY_DIR} -DTOOLS=${ORV_TOOLS}
            -P ${PROJECT_SOURCE_DIR}/tests/consumer/gallery.cmake)
        set_tests_properties(package_gallery PROPERTIES TIMEOUT 300)
    endif()
endif()

# The protections of what is delivered, and that it does not tell where it was built.
if(ORV_HARDENING)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_test(NAME package_hardening COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/consumer/check_hardening.py
        --readelf ${CMAKE_READELF} --objdump ${CMAKE_OBJDUMP} --build-folders ${PROJECT_SOURCE_DIR} ${PROJECT_BINARY_DIR}
        --package ${package})
    set_tests_properties(package_hardening PROPERTIES FIXTURES_REQUIRED package)
endif()

# The tool that compares the library with that of an older release.
find_program(ORV_ABIDIFF abidiff)
mark_as_advanced(ORV_ABIDIFF)
if(ORV_ABIDIFF AND NOT CMAKE_CROSSCOMPILING AND NOT ORV_SANITIZERS)
    find_package(Python3 REQUIRED COMPONENTS Interpreter)
    add_test(NAME compare_abi COMMAND ${Python3_EXECUTABLE} ${PROJECT_SOURCE_DIR}/tests/abi/check_compare_abi.py
        --tool ${PROJECT_SOURCE_DIR}/tools/compare-abi --compiler ${CMAKE_CXX_COMPILER}
        --folder ${PROJECT_BINARY_DIR}/consumers/compare_abi)
endif()
