# SPDX-License-Identifier: MIT
# Language, warnings, sanitizers and output folders, the same for every target.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
    set(CMAKE_BUILD_TYPE Release CACHE STRING "Build type" FORCE)
endif()

set(CMAKE_CXX_STANDARD 17)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_AUTOMOC ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

set(CMAKE_RUNTIME_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/bin)
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY ${CMAKE_BINARY_DIR}/lib)
set(CMAKE_BUILD_RPATH "$ORIGIN/../lib")
set(CMAKE_INSTALL_RPATH "$ORIGIN;$ORIGIN/../${CMAKE_INSTALL_LIBDIR}")

if(NOT CMAKE_CXX_COMPILER_LAUNCHER)
    find_program(VX_CCACHE ccache)
    if(VX_CCACHE)
        # The setting lets ccache keep what is compiled with precompiled headers.
        set(CMAKE_CXX_COMPILER_LAUNCHER
            ${CMAKE_COMMAND} -E env CCACHE_SLOPPINESS=pch_defines,time_macros ${VX_CCACHE})
    endif()
endif()

include_directories(${PROJECT_SOURCE_DIR})
add_compile_definitions(QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_NO_FOREACH QT_DEPRECATED_WARNINGS)

# The stated order of narrowing is part of every geometric result: no fused multiply-add.
add_compile_options(-ffp-contract=off
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual)
if(VX_WERROR)
    add_compile_options(-Werror)
endif()

if(VX_SANITIZE)
    add_compile_definitions(QT_FORCE_ASSERTS)
    add_compile_options(-fsanitize=${VX_SANITIZE} -fno-omit-frame-pointer -g)
    add_link_options(-fsanitize=${VX_SANITIZE})
    if(VX_SANITIZE MATCHES "undefined")
        add_compile_options(-fno-sanitize-recover=undefined)
        if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
            # Real to whole out of range: only clang sees it, and not as a part of "undefined".
            add_compile_options(-fsanitize=float-cast-overflow
                -fno-sanitize-recover=float-cast-overflow)
            add_link_options(-fsanitize=float-cast-overflow)
        endif()
    endif()
    if(VX_SANITIZE MATCHES "thread")
        add_compile_definitions(VX_THREAD_SANITIZER)
    endif()
endif()
