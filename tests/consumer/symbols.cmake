# cmake -DBUILD=<build folder> -DPACKAGE=<prefix of the package> -DDLL=<its DLL, below that> -DOBJCOPY=... -DOBJDUMP=... -P symbols.cmake
#
# The DLL for debuggers has what they read and is the same program as the one in the package, which has not.
set(folder ${BUILD}/consumers/symbols)
file(REMOVE_RECURSE ${folder})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${folder} --component Symbols
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
if(NOT EXISTS ${folder}/README.txt)
    message(SEND_ERROR "there is no note on debuggers")
endif()
foreach(one IN ITEMS PACKAGE folder)
    execute_process(COMMAND ${OBJDUMP} -h ${${one}}/${DLL} OUTPUT_VARIABLE sections_${one} COMMAND_ERROR_IS_FATAL ANY)
    execute_process(COMMAND ${OBJCOPY} -O binary --only-section=.text ${${one}}/${DLL} ${folder}/${one}.text
        COMMAND_ERROR_IS_FATAL ANY)
    file(SHA256 ${folder}/${one}.text code_${one})
endforeach()
if(NOT sections_folder MATCHES "\\.debug_info" OR NOT sections_folder MATCHES "\\.debug_line")
    message(SEND_ERROR "debuggers find nothing in the DLL that is for them")
endif()
if(sections_PACKAGE MATCHES "\\.debug_")
    message(SEND_ERROR "the DLL in the package carries what only debuggers read")
endif()
if(NOT code_PACKAGE STREQUAL code_folder)
    message(SEND_ERROR "the two DLLs are different programs")
endif()
