# The gallery for Windows with all that it needs, as the component Gallery: an archive that one unpacks and starts.

get_target_property(library ${ORV_QT}::Core IMPORTED_LOCATION_RELEASE)
cmake_path(GET library PARENT_PATH qt_dlls)
cmake_path(GET qt_dlls PARENT_PATH qt)
set(ORV_QT_VERSION ${${ORV_QT}_VERSION})

install(TARGETS gallery orvcommonlib RUNTIME DESTINATION . COMPONENT Gallery EXCLUDE_FROM_ALL)
foreach(plugin IN ITEMS platforms/qwindows imageformats/qgif imageformats/qjpeg imageformats/qsvg iconengines/qsvgicon
    styles/qwindowsvistastyle)
    cmake_path(GET plugin PARENT_PATH folder)
    install(FILES ${qt}/plugins/${plugin}.dll DESTINATION ${folder} COMPONENT Gallery EXCLUDE_FROM_ALL)
endforeach()

foreach(module IN ITEMS Core Gui Widgets Svg)
    install(FILES $<TARGET_FILE:${ORV_QT}::${module}> DESTINATION . COMPONENT Gallery EXCLUDE_FROM_ALL)
endforeach()

# What all these link and lies where Qt's libraries and the compiler's do. What lies nowhere is Windows' own. CMake looks for
# names in lower case, as the compiler's are and Qt's are not.
set(runtime_folders ${qt_dlls})
foreach(name IN ITEMS libstdc++-6.dll libwinpthread-1.dll)
    execute_process(COMMAND ${CMAKE_CXX_COMPILER} -print-file-name=${name} OUTPUT_VARIABLE file OUTPUT_STRIP_TRAILING_WHITESPACE)
    cmake_path(GET file PARENT_PATH folder)
    list(APPEND runtime_folders ${folder})
endforeach()
install(CODE "
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_PLATFORM windows+pe)
    set(CMAKE_GET_RUNTIME_DEPENDENCIES_TOOL objdump)
    set(CMAKE_OBJDUMP \"${CMAKE_OBJDUMP}\")
    set(folder \"\$ENV{DESTDIR}\${CMAKE_INSTALL_PREFIX}\")
    file(GLOB libraries \"\${folder}/*.dll\" \"\${folder}/*/*.dll\")
    file(GET_RUNTIME_DEPENDENCIES EXECUTABLES \"\${folder}/gallery.exe\" LIBRARIES \${libraries}
        DIRECTORIES ${runtime_folders}
        RESOLVED_DEPENDENCIES_VAR found UNRESOLVED_DEPENDENCIES_VAR of_windows)
    file(COPY \${found} DESTINATION \"\${folder}\")
" COMPONENT Gallery EXCLUDE_FROM_ALL)

configure_file(${PROJECT_SOURCE_DIR}/cmake/readme-gallery.txt.in ${CMAKE_CURRENT_BINARY_DIR}/README.txt @ONLY NEWLINE_STYLE CRLF)
install(FILES ${CMAKE_CURRENT_BINARY_DIR}/README.txt DESTINATION . COMPONENT Gallery EXCLUDE_FROM_ALL)
# Their texts, from where Debian and Qt keep them.
install(FILES /usr/share/common-licenses/LGPL-3 /usr/share/common-licenses/GPL-3 DESTINATION licences
    COMPONENT Gallery EXCLUDE_FROM_ALL OPTIONAL)
foreach(part IN ITEMS gcc-mingw-w64-x86-64-posix-runtime mingw-w64-x86-64-dev)
    install(FILES /usr/share/doc/${part}/copyright DESTINATION licences RENAME ${part}.txt
        COMPONENT Gallery EXCLUDE_FROM_ALL OPTIONAL)
endforeach()
