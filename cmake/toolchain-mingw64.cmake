# Windows, x86-64, with mingw-w64 (posix threads). ORV_WINDOWS_QT, a cache or environment variable, is the prefix of a
# Qt 5.15 for that target whose bin folder holds moc, rcc and uic for the build machine: see tools/build-windows-qt.

set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)

set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)

if(NOT ORV_WINDOWS_QT)
    set(ORV_WINDOWS_QT "$ENV{ORV_WINDOWS_QT}" CACHE PATH "Prefix of a Qt 5.15 for Windows" FORCE)
endif()
if(NOT EXISTS "${ORV_WINDOWS_QT}/lib/cmake/Qt5/Qt5Config.cmake")
    message(FATAL_ERROR "ORV_WINDOWS_QT (\"${ORV_WINDOWS_QT}\") is not the prefix of a Qt 5.15 for Windows. "
        "Set it to one, or build one with: ./dev windows qt")
endif()
# The compiler checks at configure time run in projects of their own.
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES ORV_WINDOWS_QT)

# What is given as CMAKE_PREFIX_PATH is for the target as well.
set(CMAKE_FIND_ROOT_PATH "${ORV_WINDOWS_QT}" /usr/x86_64-w64-mingw32 ${CMAKE_PREFIX_PATH})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Programs of the target run under Wine, each on an X server of its own: two that share one take the focus and the
# pointer from each other. No window on Windows is larger than the screen, and the gallery's are large at a ratio of 2.
set(ORV_TOOLS ${CMAKE_CURRENT_LIST_DIR}/../tools)
set(CMAKE_CROSSCOMPILING_EMULATOR
    "${ORV_TOOLS}/with-server;--size;2400x1600;${ORV_TOOLS}/run-under-wine;${ORV_WINDOWS_QT};${CMAKE_BINARY_DIR}/wine")
