# SPDX-License-Identifier: MIT
# vxcore: the objects of libvxarttext in one archive, for programs that look inside the library
# (tests, benchmarks). The applications never link it.

set(core_objects)
foreach(library ${VX_OBJECT_LIBRARIES})
    list(APPEND core_objects $<TARGET_OBJECTS:${library}>)
endforeach()
add_library(vxcore STATIC EXCLUDE_FROM_ALL ${core_objects})
set_target_properties(vxcore PROPERTIES LINKER_LANGUAGE CXX AUTOMOC OFF)
target_link_libraries(vxcore PUBLIC ${VX_HOST_LIBRARIES} Qt5::Widgets)
