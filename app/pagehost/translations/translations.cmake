# SPDX-License-Identifier: MIT
# The languages of the editor: each .ts file becomes a .qm in the program. scripts/translate.sh brings the .ts files
# up to date with the sources.

set(vx_languages zh_CN)
find_program(VX_LRELEASE NAMES lrelease lrelease-qt5 PATHS /usr/lib/qt5/bin)
if(NOT VX_LRELEASE)
    message(FATAL_ERROR "lrelease of Qt 5 is missing (Debian: qttools5-dev-tools)")
endif()

set(vx_messages)
set(vx_message_files)
foreach(language ${vx_languages})
    set(source ${CMAKE_CURRENT_SOURCE_DIR}/translations/pagehost_${language}.ts)
    set(target ${CMAKE_CURRENT_BINARY_DIR}/pagehost_${language}.qm)
    add_custom_command(OUTPUT ${target}
        COMMAND ${VX_LRELEASE} -silent ${source} -qm ${target}
        DEPENDS ${source} VERBATIM)
    list(APPEND vx_message_files ${target})
    string(APPEND vx_messages "    <file>pagehost_${language}.qm</file>\n")
endforeach()

set(vx_message_list ${CMAKE_CURRENT_BINARY_DIR}/pagehost_translations.qrc)
file(CONFIGURE OUTPUT ${vx_message_list} CONTENT
    "<RCC>\n  <qresource prefix=\"/translations\">\n${vx_messages}  </qresource>\n  <qresource prefix=\"/icons\">\n    <file alias=\"pagehost.svg\">${CMAKE_CURRENT_SOURCE_DIR}/desktop/org.vxarttext.pagehost.svg</file>\n  </qresource>\n</RCC>\n")
set(vx_message_source ${CMAKE_CURRENT_BINARY_DIR}/qrc_pagehost_translations.cpp)
add_custom_command(OUTPUT ${vx_message_source}
    COMMAND Qt5::rcc --name pagehost_translations ${vx_message_list} -o ${vx_message_source}
    DEPENDS ${vx_message_list} ${vx_message_files} VERBATIM)
target_sources(vxpagehost PRIVATE ${vx_message_source})
set_source_files_properties(${vx_message_source} PROPERTIES SKIP_AUTOMOC ON)
