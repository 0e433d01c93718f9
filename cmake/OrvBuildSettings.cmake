# What every target of this project is compiled with. A client's own targets see none of it.

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_AUTOGEN_ORIGIN_DEPENDS OFF) # moc reads no file that another target makes
set(CMAKE_INCLUDE_CURRENT_DIR OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(ORV_CCACHE ccache)
    mark_as_advanced(ORV_CCACHE)
    if(ORV_CCACHE)
        # What it needs to keep results of precompiled headers. Dependencies come from the compiler: a preprocessor of its
        # own would read all headers again. No object tells where the sources lie, so that all copies of them share what
        # is kept, the one that Debian's packages are built from included.
        set(CMAKE_CXX_COMPILER_LAUNCHER ${CMAKE_COMMAND} -E env
            CCACHE_SLOPPINESS=pch_defines,time_macros CCACHE_DEPEND=1
            CCACHE_BASEDIR=${PROJECT_SOURCE_DIR} CCACHE_NOHASHDIR=1 ${ORV_CCACHE})
    endif()
endif()

# What nearly every file includes, precompiled for each group of targets that are compiled alike. The preset "clang" has
# no precompiled headers: it shows that each file includes what it uses.
set(ORV_COMMON_HEADERS
    <QtCore/QCoreApplication> <QtCore/QFile> <QtCore/QPointer> <QtCore/QTimer>
    <QtGui/QImage> <QtGui/QMouseEvent> <QtGui/QPainter>
    <QtWidgets/QApplication> <QtWidgets/QHBoxLayout> <QtWidgets/QLabel> <QtWidgets/QPushButton>
    <algorithm> <functional> <memory>)

# The linkers that take a fraction of the default one's time; programs alone use them, the library is linked as usual.
include(CheckLinkerFlag)
foreach(linker IN ITEMS lld gold)
    check_linker_flag(CXX -fuse-ld=${linker} ORV_HAS_LINKER_${linker})
    if(ORV_HAS_LINKER_${linker})
        set(ORV_FAST_LINKER -fuse-ld=${linker})
        break()
    endif()
endforeach()

if(PROJECT_IS_TOP_LEVEL)
    set(CMAKE_GLOBAL_AUTOGEN_TARGET ON) # "autogen", all that the linters need to have been built
    set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
    set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/lib)
    if(WIN32)
        # A DLL is found beside the program that needs it.
        set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${PROJECT_BINARY_DIR}/bin)
    endif()
endif()

# orv_target_defaults(<target>): warnings, sanitizers and the definitions that all of our own code shares.
function(orv_target_defaults target)
    target_compile_definitions(${target} PRIVATE
        QT_MESSAGELOGCONTEXT      # log lines carry file, line and signature in Release too
        QT_NO_CAST_FROM_ASCII
        QT_NO_CAST_TO_ASCII
        QT_NO_FOREACH
        QT_DEPRECATED_WARNINGS
        QT_DISABLE_DEPRECATED_BEFORE=${ORV_QT_API})
    if(MSVC)
        target_compile_options(${target} PRIVATE /W4 /permissive- /Zc:__cplusplus /utf-8
            $<$<BOOL:${ORV_WARNINGS_AS_ERRORS}>:/WX>)
    else()
        target_compile_options(${target} PRIVATE -Wall -Wextra -Wpedantic -Wnon-virtual-dtor -Woverloaded-virtual
            -Wcast-align -Wshadow
            # qCWarning(category) leaves out a variadic argument, which C++20 allows and every compiler takes.
            $<$<CXX_COMPILER_ID:Clang>:-Wno-gnu-zero-variadic-macro-arguments>
            -ffile-prefix-map=${PROJECT_SOURCE_DIR}/=
            $<$<BOOL:${ORV_WARNINGS_AS_ERRORS}>:-Werror>)
    endif()
    if(ORV_SANITIZERS)
        target_compile_options(${target} PRIVATE -fsanitize=${ORV_SANITIZERS} -fno-omit-frame-pointer -fno-sanitize-recover=all)
        target_link_options(${target} PRIVATE -fsanitize=${ORV_SANITIZERS})
    endif()
endfunction()

# orv_program_defaults(<target>): the same for programs and for what only programs share. They are two thirds of all that
# is compiled, so of debug information they carry what stack traces need, and the checks for undefined behaviour, which
# nearly double the time to compile, are for the library that they use.
function(orv_program_defaults target)
    orv_target_defaults(${target})
    if(ORV_SANITIZERS MATCHES undefined)
        target_compile_options(${target} PRIVATE -fno-sanitize=undefined)
    endif()
    if(NOT MSVC)
        target_compile_options(${target} PRIVATE $<$<CONFIG:Debug>:-g1>)
        target_link_options(${target} PRIVATE ${ORV_FAST_LINKER})
    endif()
endfunction()

# orv_test_defaults(<target>): the same for tests and for what only tests share, which take longer to compile than to run.
# They are not optimized in any build, but where inputs are tried by the million.
function(orv_test_defaults target)
    orv_program_defaults(${target})
    if(NOT MSVC AND NOT ORV_SANITIZERS MATCHES fuzzer)
        target_compile_options(${target} PRIVATE -O0)
    endif()
endfunction()

# orv_harden(<target>): what distributions build their packages with, for what is delivered.
function(orv_harden target)
    if(NOT ORV_HARDENING)
        return()
    endif()
    target_compile_options(${target} PRIVATE -g) # packages split it off, for debuggers
    if(WIN32)
        # The checks of the other branch would need one more DLL of mingw-w64's there.
        target_link_options(${target} PRIVATE LINKER:--dynamicbase,--nxcompat,--high-entropy-va)
    else()
        target_compile_options(${target} PRIVATE
            -U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=2 -fstack-protector-strong -fcf-protection)
        target_link_options(${target} PRIVATE LINKER:-z,relro,-z,now,-z,noexecstack)
    endif()
endfunction()
