# SPDX-License-Identifier: MIT
# Qt's headers, compiled once instead of once a source: about two fifths of a whole build. The release
# preset goes without, so that a source that forgets an #include still fails somewhere.
option(VX_PRECOMPILE "Compile Qt's headers once" OFF)

# vx_precompile(<owner> <folder>)
#
# Lets all targets of <folder> and below that share no headers yet share one compiled form of Qt's, which
# <owner> makes with the compile options of <folder>. Targets without moc (archives of ready objects,
# checks of single headers) stay as they are.
function(vx_precompile owner folder)
    if(NOT VX_PRECOMPILE)
        return()
    endif()
    file(GENERATE OUTPUT ${CMAKE_BINARY_DIR}/${owner}.cpp CONTENT "")
    add_library(${owner} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/${owner}.cpp)
    get_directory_property(options DIRECTORY ${folder} COMPILE_OPTIONS)
    set_target_properties(${owner} PROPERTIES AUTOMOC OFF COMPILE_OPTIONS "${options}")
    # Not linked to Qt: what that defines differs from target to target, and must not be baked in.
    target_include_directories(${owner} SYSTEM PRIVATE
        $<TARGET_PROPERTY:Qt5::Widgets,INTERFACE_INCLUDE_DIRECTORIES>)
    target_precompile_headers(${owner} PRIVATE <QtWidgets>)
    vx_share_precompiled(${owner} ${folder})
endfunction()

function(vx_share_precompiled owner folder)
    get_directory_property(targets DIRECTORY ${folder} BUILDSYSTEM_TARGETS)
    foreach(target ${targets})
        get_target_property(type ${target} TYPE)
        get_target_property(has_moc ${target} AUTOMOC)
        get_target_property(shared ${target} PRECOMPILE_HEADERS_REUSE_FROM)
        if(has_moc AND NOT shared AND NOT type STREQUAL "UTILITY")
            target_precompile_headers(${target} REUSE_FROM ${owner})
        endif()
    endforeach()
    get_directory_property(subfolders DIRECTORY ${folder} SUBDIRECTORIES)
    foreach(subfolder ${subfolders})
        vx_share_precompiled(${owner} ${subfolder})
    endforeach()
endfunction()
