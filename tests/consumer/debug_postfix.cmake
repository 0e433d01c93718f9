# cmake -DSOURCES=<folder> -DBUILD=<folder> -DGENERATOR=... -DTOOLCHAIN=<file> -DORV_WINDOWS_QT=<folder> -DPACKAGE=<name> -P debug_postfix.cmake
#
# A debug build for Windows has names of its own, also where others read them; nothing is built for that.
file(REMOVE_RECURSE ${BUILD})
execute_process(COMMAND ${CMAKE_COMMAND} -G ${GENERATOR} -S ${SOURCES} -B ${BUILD} -DCMAKE_BUILD_TYPE=Debug
    -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN} -DORV_WINDOWS_QT=${ORV_WINDOWS_QT} -DCMAKE_EXPORT_COMPILE_COMMANDS=OFF
    -DORV_BUILD_TESTS=OFF -DORV_BUILD_GALLERY=OFF -DORV_BUILD_BENCHMARKS=OFF
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND ${CMAKE_COMMAND} --build ${BUILD} --target help OUTPUT_VARIABLE targets COMMAND_ERROR_IS_FATAL ANY)
if(NOT targets MATCHES "${PACKAGE}d\\.dll" OR targets MATCHES "${PACKAGE}\\.dll")
    message(SEND_ERROR "the DLL of a debug build is not called ${PACKAGE}d.dll")
endif()
foreach(file IN ITEMS ${PACKAGE}.pc orvcommonlib.prf)
    file(READ ${BUILD}/${file} text)
    if(NOT text MATCHES "-l${PACKAGE}d[ \n]")
        message(SEND_ERROR "${file} does not name ${PACKAGE}d:\n${text}")
    endif()
endforeach()
