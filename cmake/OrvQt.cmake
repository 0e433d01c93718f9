# Which of the two Qts the whole tree is built with, and what differs between them as far as CMake sees it.

set(ORV_QT Qt${ORV_QT_MAJOR})
if(ORV_QT_MAJOR EQUAL 5)
    set(ORV_QT_MINIMUM 5.15)
    set(ORV_QT_API 0x050F00) # nothing deprecated up to this version is compiled in
    set(ORV_PACKAGE orvcommonlib)
elseif(ORV_QT_MAJOR EQUAL 6)
    set(ORV_QT_MINIMUM 6.4)
    set(ORV_QT_API 0x060400)
    set(ORV_PACKAGE orvcommonlib-qt6) # names the library, the package and its folders: both may be installed together
else()
    message(FATAL_ERROR "ORV_QT_MAJOR is \"${ORV_QT_MAJOR}\", and neither 5 nor 6")
endif()
