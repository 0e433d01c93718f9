# cmake -DBUILD=<build folder> -DTOOLS=<folder> -P gallery.cmake
#
# The gallery out of its archive, in a folder with a name that needs care, opens where nothing else of Qt's or of the compiler's
# is to be found.
set(folder "${BUILD}/consumers/The Gallery")
file(REMOVE_RECURSE ${folder})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder} --component Gallery --strip
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${folder}/README.txt OR NOT EXISTS ${folder}/licences/LGPL-3)
    message(SEND_ERROR "the archive does not say under which terms Qt comes with it")
endif()
execute_process(COMMAND ${TOOLS}/with-server ${CMAKE_CURRENT_LIST_DIR}/start_gallery ${TOOLS} ${BUILD}/wine ${folder}/gallery.exe
    COMMAND_ERROR_IS_FATAL ANY)
