# Installs the library as a package: headers, library, find_package(orvcommonlib) and pkg-config. The component Runtime is
# what programs need to run, Development what they need to be built.
include(CMakePackageConfigHelpers)

set(ORV_PACKAGE_DIR ${CMAKE_INSTALL_LIBDIR}/cmake/${ORV_PACKAGE})

install(TARGETS orvcommonlib EXPORT orvcommonlibTargets
    RUNTIME DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Runtime
    LIBRARY DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Runtime NAMELINK_COMPONENT Development
    ARCHIVE DESTINATION ${CMAKE_INSTALL_LIBDIR} COMPONENT Development)
install(FILES ${ORV_PUBLIC_HEADERS} DESTINATION ${CMAKE_INSTALL_INCLUDEDIR}/${ORV_PACKAGE} COMPONENT Development)
install(EXPORT orvcommonlibTargets NAMESPACE orvcommonlib:: DESTINATION ${ORV_PACKAGE_DIR} COMPONENT Development)

# What a program links of a static library. The .pc file names it too.
set(ORV_STATIC_DEPENDENCIES "")
set(ORV_PC_REQUIRES "")
foreach(module IN ITEMS Core Gui Widgets)
    list(APPEND ORV_PC_REQUIRES "${ORV_QT}${module} >= ${ORV_QT_MINIMUM}")
endforeach()
set(ORV_PC_CFLAGS "")
set(ORV_LINKED_NAME ${ORV_PACKAGE})
if(CMAKE_BUILD_TYPE STREQUAL Debug)
    get_target_property(postfix orvcommonlib DEBUG_POSTFIX)
    if(postfix)
        string(APPEND ORV_LINKED_NAME ${postfix})
    endif()
endif()
set(ORV_PC_LIBS "-L\${libdir} -l${ORV_LINKED_NAME}")
if(ORV_LIBRARY_TYPE STREQUAL STATIC)
    string(APPEND ORV_STATIC_DEPENDENCIES "find_dependency(${ORV_QT} ${ORV_QT_MINIMUM} COMPONENTS Svg)\n")
    list(APPEND ORV_PC_REQUIRES ${ORV_QT}Svg)
    string(APPEND ORV_PC_CFLAGS " -DORVCOMMONLIB_STATIC")
    string(PREPEND ORV_PC_LIBS "-Wl,-u,orvcommonlib_startup ")
    if(WIN32)
        string(APPEND ORV_PC_LIBS " -luser32")
    elseif(ORV_X11_HOTKEYS)
        if(ORV_QT_MAJOR EQUAL 5)
            string(APPEND ORV_STATIC_DEPENDENCIES "find_dependency(Qt5X11Extras ${ORV_QT_MINIMUM})\n")
            list(APPEND ORV_PC_REQUIRES Qt5X11Extras)
        endif()
        string(APPEND ORV_STATIC_DEPENDENCIES
            "find_dependency(PkgConfig)\n"
            "pkg_check_modules(ORV_XCB REQUIRED IMPORTED_TARGET x11 xcb xkbcommon)\n")
        list(APPEND ORV_PC_REQUIRES x11 xcb xkbcommon)
    endif()
endif()
list(JOIN ORV_PC_REQUIRES " " ORV_PC_REQUIRES)

configure_package_config_file(${PROJECT_SOURCE_DIR}/cmake/orvcommonlibConfig.cmake.in
    ${PROJECT_BINARY_DIR}/orvcommonlibConfig.cmake INSTALL_DESTINATION ${ORV_PACKAGE_DIR})
write_basic_package_version_file(${PROJECT_BINARY_DIR}/orvcommonlibVersion.cmake COMPATIBILITY SameMajorVersion)
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvcommonlibConfigVersion.cmake.in
    ${PROJECT_BINARY_DIR}/orvcommonlibConfigVersion.cmake @ONLY)
install(FILES
    ${PROJECT_BINARY_DIR}/orvcommonlibConfig.cmake
    ${PROJECT_BINARY_DIR}/orvcommonlibConfigVersion.cmake
    ${PROJECT_BINARY_DIR}/orvcommonlibVersion.cmake
    DESTINATION ${ORV_PACKAGE_DIR} COMPONENT Development)
if(ORV_QT_MAJOR EQUAL 6)
    # It may be asked for by its own name too.
    install(FILES ${PROJECT_BINARY_DIR}/orvcommonlibConfig.cmake DESTINATION ${ORV_PACKAGE_DIR} COMPONENT Development
        RENAME ${ORV_PACKAGE}Config.cmake)
    install(FILES ${PROJECT_BINARY_DIR}/orvcommonlibVersion.cmake DESTINATION ${ORV_PACKAGE_DIR} COMPONENT Development
        RENAME ${ORV_PACKAGE}ConfigVersion.cmake)
endif()

# Found through the place of the .pc file itself, so that the package can be moved.
file(RELATIVE_PATH ORV_PC_TO_PREFIX ${CMAKE_INSTALL_FULL_LIBDIR}/pkgconfig ${CMAKE_INSTALL_PREFIX})
file(RELATIVE_PATH ORV_PREFIX_TO_INCLUDE ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_INCLUDEDIR})
file(RELATIVE_PATH ORV_PREFIX_TO_LIB ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_LIBDIR})
file(RELATIVE_PATH ORV_PREFIX_TO_DATA ${CMAKE_INSTALL_PREFIX} ${CMAKE_INSTALL_FULL_DATADIR})
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvcommonlib.pc.in ${PROJECT_BINARY_DIR}/${ORV_PACKAGE}.pc @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/${ORV_PACKAGE}.pc DESTINATION ${CMAKE_INSTALL_LIBDIR}/pkgconfig
    COMPONENT Development)

# For qmake, where a Qt installed to the same prefix looks for it; any other finds it by QMAKEFEATURES. A static library
# brings along what it links itself.
set(ORV_FEATURES_DIR ${CMAKE_INSTALL_LIBDIR}/qt${ORV_QT_MAJOR}/mkspecs/features)
file(RELATIVE_PATH ORV_PRF_TO_PREFIX ${CMAKE_INSTALL_PREFIX}/${ORV_FEATURES_DIR} ${CMAKE_INSTALL_PREFIX})
set(ORV_PRF_QT "core gui widgets")
set(ORV_PRF_DEFINES "")
set(ORV_PRF_STARTUP "")
set(ORV_PRF_LIBS "")
if(ORV_LIBRARY_TYPE STREQUAL STATIC)
    string(APPEND ORV_PRF_QT " svg")
    set(ORV_PRF_DEFINES "DEFINES *= ORVCOMMONLIB_STATIC")
    set(ORV_PRF_STARTUP "-Wl,-u,orvcommonlib_startup")
    if(WIN32)
        set(ORV_PRF_LIBS "-luser32")
    elseif(ORV_X11_HOTKEYS)
        set(ORV_PRF_LIBS "-lX11 -lxcb -lxkbcommon")
        if(ORV_QT_MAJOR EQUAL 5)
            string(APPEND ORV_PRF_QT " x11extras")
        endif()
    endif()
endif()
configure_file(${PROJECT_SOURCE_DIR}/cmake/orvcommonlib.prf.in ${PROJECT_BINARY_DIR}/orvcommonlib.prf @ONLY)
install(FILES ${PROJECT_BINARY_DIR}/orvcommonlib.prf DESTINATION ${ORV_FEATURES_DIR} COMPONENT Development)

if(NOT PROJECT_IS_TOP_LEVEL)
    return()
endif()

# What cpack writes: the same, as one archive, without the information for debuggers.
set(CPACK_PACKAGE_VENDOR orvcommonlib)
set(CPACK_STRIP_FILES ON)
set(CPACK_GENERATOR TGZ)
set(CPACK_PACKAGE_FILE_NAME ${ORV_PACKAGE}-${PROJECT_VERSION}-linux-${CMAKE_SYSTEM_PROCESSOR})
if(WIN32)
    set(CPACK_GENERATOR ZIP)
    set(CPACK_PACKAGE_FILE_NAME ${ORV_PACKAGE}-${PROJECT_VERSION}-windows-${CMAKE_SYSTEM_PROCESSOR})
endif()
if(MINGW)
    # An archive of its own: the DLL as it was linked, for debuggers. What is installed as a file is not stripped.
    install(FILES $<TARGET_FILE:orvcommonlib> DESTINATION ${CMAKE_INSTALL_BINDIR} COMPONENT Symbols EXCLUDE_FROM_ALL)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/readme-symbols.txt.in ${PROJECT_BINARY_DIR}/symbols/README.txt @ONLY
        NEWLINE_STYLE CRLF)
    install(FILES ${PROJECT_BINARY_DIR}/symbols/README.txt DESTINATION . COMPONENT Symbols EXCLUDE_FROM_ALL)
    configure_file(${PROJECT_SOURCE_DIR}/cmake/readme-windows.txt.in ${PROJECT_BINARY_DIR}/README.txt @ONLY
        NEWLINE_STYLE CRLF)
    install(FILES ${PROJECT_BINARY_DIR}/README.txt DESTINATION . COMPONENT Development)
endif()
include(CPack)
