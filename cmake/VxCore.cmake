# SPDX-License-Identifier: MIT
# vxcore: the objects of libvxarttext in one archive, for programs that look inside the library
# (tests, benchmarks, fuzz targets). The applications never link it.

set(core_objects)
foreach(library ${VX_OBJECT_LIBRARIES})
    if(TARGET ${library})
        list(APPEND core_objects $<TARGET_OBJECTS:${library}>)
    endif()
endforeach()
if(TARGET vxplugin_objects)
    list(APPEND core_objects $<TARGET_OBJECTS:vxplugin_objects>)
elseif(EXISTS ${PROJECT_SOURCE_DIR}/plugin/vxtext.cpp)
    list(APPEND core_objects ${PROJECT_SOURCE_DIR}/plugin/vxtext.cpp)
endif()

if(core_objects)
    add_library(vxcore STATIC EXCLUDE_FROM_ALL ${core_objects})
    set_target_properties(vxcore PROPERTIES LINKER_LANGUAGE CXX)
    target_compile_definitions(vxcore PRIVATE VXARTTEXT_LIBRARY)
    target_link_libraries(vxcore PUBLIC Qt5::Widgets)
    foreach(library ${VX_HOST_LIBRARIES})
        if(TARGET ${library})
            target_link_libraries(vxcore PUBLIC ${library})
        endif()
    endforeach()
else()
    add_library(vxcore INTERFACE)
endif()
