# cmake -DQMAKE=<qmake> -DFEATURES=<folder of the .prf> -DLIBRARIES=<folder> -DPICTURES=<file> -DBUILD=<folder> -P qmake.cmake
#
# Builds the client with qmake and runs it.
file(REMOVE_RECURSE ${BUILD})
file(MAKE_DIRECTORY ${BUILD})
set(ENV{QMAKEFEATURES} ${FEATURES})
set(ENV{LD_LIBRARY_PATH} ${LIBRARIES})
foreach(step IN ITEMS "${QMAKE};PICTURES=${PICTURES};${CMAKE_CURRENT_LIST_DIR}/consumer.pro" make ./consumer)
    execute_process(COMMAND ${step} WORKING_DIRECTORY ${BUILD} COMMAND_ERROR_IS_FATAL ANY)
endforeach()
