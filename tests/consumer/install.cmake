# cmake -DBUILD=<build folder> -DPREFIX=<folder> [-DCPACK=<cpack>] -P install.cmake
#
# Installs the library from the build folder into an empty prefix: directly, or, with CPACK, by way of its archive.
file(REMOVE_RECURSE ${PREFIX} ${PREFIX}-archive)
if(CPACK)
    execute_process(COMMAND ${CPACK} --config ${BUILD}/CPackConfig.cmake -B ${PREFIX}-archive
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
    file(GLOB archive ${PREFIX}-archive/orvcommonlib-*)
    file(ARCHIVE_EXTRACT INPUT ${archive} DESTINATION ${PREFIX}-archive/unpacked)
    file(GLOB unpacked ${PREFIX}-archive/unpacked/*)
    file(RENAME ${unpacked} ${PREFIX})
else()
    execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
        OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endif()
