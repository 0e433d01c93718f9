# orv_named_sheets(<collection>)
#
# The named style sheets name their colours, so that a client has them in any look. Those under :/qssFromResource have
# light's colours in place of the names: they are written here, out of the same sources. The collection is one of
# resources.
function(orv_named_sheets collection)
    set(resources ${CMAKE_CURRENT_SOURCE_DIR}/resources)
    file(GLOB sheets CONFIGURE_DEPENDS ${resources}/sheets/*.qss)
    file(STRINGS ${resources}/themes/light.ini colors REGEX "^[a-zA-Z]+=\"")
    foreach(sheet IN LISTS sheets)
        file(READ ${sheet} text)
        foreach(color IN LISTS colors)
            string(REGEX MATCH "^([a-zA-Z]+)=\"(.*)\"$" matched "${color}")
            string(REPLACE "@${CMAKE_MATCH_1}" "${CMAKE_MATCH_2}" text "${text}")
        endforeach()
        get_filename_component(name ${sheet} NAME)
        file(CONFIGURE OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/qssFromResource/${name} CONTENT "${text}" @ONLY NEWLINE_STYLE UNIX)
    endforeach()
    set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS ${sheets} ${resources}/themes/light.ini)
    configure_file(${resources}/namedsheets.qrc.in ${CMAKE_CURRENT_BINARY_DIR}/namedsheets.qrc COPYONLY)
    set(${collection} ${CMAKE_CURRENT_BINARY_DIR}/namedsheets.qrc PARENT_SCOPE)
endfunction()
