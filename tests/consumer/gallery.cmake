# cmake -DBUILD=<build folder> -DPAGES=<folder with the gallery's pages> -DTOOLS=<folder> -P gallery.cmake
#
# The gallery out of its archive, in a folder with a name that needs care, draws a picture of every page where nothing else
# of Qt's or of the compiler's is to be found.
set(folder "${BUILD}/consumers/The Gallery")
set(pictures ${BUILD}/consumers/gallery-pictures)
file(REMOVE_RECURSE ${folder} ${pictures})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder} --component Gallery --strip
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${folder}/README.txt OR NOT EXISTS ${folder}/licences/LGPL-3)
    message(SEND_ERROR "the archive does not say under which terms Qt comes with it")
endif()
string(REPLACE "/" "\\" windows_pictures "Z:${pictures}")
execute_process(COMMAND ${TOOLS}/with-server --size 2400x1600 ${TOOLS}/run-under-wine - ${BUILD}/wine
    ${folder}/gallery.exe --shots ${windows_pictures}
    WORKING_DIRECTORY / COMMAND_ERROR_IS_FATAL ANY)
file(GLOB pages ${PAGES}/*.cpp)
file(GLOB drawn ${pictures}/*.png)
list(LENGTH pages wanted)
list(LENGTH drawn found)
if(found LESS wanted)
    message(FATAL_ERROR "${found} pictures of ${wanted} pages")
endif()
