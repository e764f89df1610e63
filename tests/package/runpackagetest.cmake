# SPDX-License-Identifier: MIT
# Arguments: BUILD_DIR, BUILD_TYPE, SOURCE_DIR, WORK_DIR, LIBDIR, CXX_COMPILER, SANITIZE.
cmake_minimum_required(VERSION 3.25)

function(run)
    execute_process(COMMAND ${ARGV} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    if(NOT result EQUAL 0)
        message(FATAL_ERROR "${ARGV}\n${out}")
    endif()
endfunction()

set(prefix ${WORK_DIR}/prefix)
set(flags)
if(SANITIZE)
    set(flags -fsanitize=${SANITIZE})
endif()

file(REMOVE_RECURSE ${WORK_DIR})
run(${CMAKE_COMMAND} --install ${BUILD_DIR} --prefix ${prefix})
run(${CMAKE_COMMAND} -S ${SOURCE_DIR} -B ${WORK_DIR}/build -G Ninja
    -DCMAKE_PREFIX_PATH=${prefix} -DCMAKE_BUILD_TYPE=${BUILD_TYPE}
    -DCMAKE_CXX_COMPILER=${CXX_COMPILER} -DCMAKE_CXX_FLAGS=${flags})
run(${CMAKE_COMMAND} --build ${WORK_DIR}/build)
run(${WORK_DIR}/build/consumer ${prefix}/${LIBDIR}/libvxarttext.so.1)

# The same libraries by pkg-config.
set(ENV{PKG_CONFIG_PATH} ${prefix}/${LIBDIR}/pkgconfig)
run(pkg-config --exists --print-errors "vxarttext >= 1.0")

# What was installed starts from where it was installed.
if(EXISTS ${prefix}/bin/pagerender)
    file(WRITE ${WORK_DIR}/text.txt "installed\n")
    run(${prefix}/bin/pagerender --text ${WORK_DIR}/text.txt -o ${WORK_DIR}/text.png)
    if(NOT EXISTS ${WORK_DIR}/text.png)
        message(FATAL_ERROR "the installed pagerender made no picture")
    endif()
endif()

# expect(CODE TEXT COMMAND...): the command ends with CODE and says TEXT.
function(expect code text)
    execute_process(COMMAND ${ARGN} RESULT_VARIABLE result OUTPUT_VARIABLE out ERROR_VARIABLE out)
    string(FIND "${out}" "${text}" at)
    if(NOT result EQUAL code OR at EQUAL -1)
        message(FATAL_ERROR "${ARGN} ended with ${result}, not ${code}, and said\n${out}\nand not ${text}")
    endif()
endfunction()

# check_share(FILE [LINE...]): share/FILE is installed, and has each LINE.
function(check_share file)
    if(NOT EXISTS ${prefix}/share/${file})
        message(FATAL_ERROR "share/${file} is not installed")
    endif()
    file(STRINGS ${prefix}/share/${file} lines)
    foreach(line ${ARGN})
        if(NOT line IN_LIST lines)
            message(FATAL_ERROR "share/${file} has no line '${line}'")
        endif()
    endforeach()
endfunction()

# The programs have manuals that others find by their names.
find_program(LEXGROG lexgrog)
set(check_pagerender --check)
foreach(program pagerender pagehost)
    if(EXISTS ${prefix}/bin/${program})
        check_share(man/man1/${program}.1)
        if(LEXGROG)
            expect(0 "\"${program} - " ${LEXGROG} ${prefix}/share/man/man1/${program}.1)
        endif()
        expect(4 "${WORK_DIR}/none.so" ${prefix}/bin/${program} ${WORK_DIR}/text.txt
            --plugin ${WORK_DIR}/none.so ${check_${program}})
    endif()
endforeach()

# A desktop finds the editor, the type of its files and their icons; the editor brings its translations.
if(EXISTS ${prefix}/bin/pagehost)
    run(${prefix}/bin/pagehost --version)
    set(id org.vxarttext.pagehost)
    set(type application/x-vxpage)
    check_share(applications/${id}.desktop "Exec=pagehost %f" "Icon=${id}")
    check_share(metainfo/${id}.metainfo.xml "  <launchable type=\"desktop-id\">${id}.desktop</launchable>"
        "    <binary>pagehost</binary>" "    <mediatype>${type}</mediatype>")
    check_share(mime/packages/${id}.xml "  <mime-type type=\"${type}\">"
        "    <icon name=\"application-x-vxpage\"/>")
    check_share(icons/hicolor/scalable/apps/${id}.svg)
    check_share(icons/hicolor/scalable/mimetypes/application-x-vxpage.svg)
    file(READ ${prefix}/share/applications/${id}.desktop entry)
    string(FIND "${entry}" "MimeType=${type}" at)
    if(at EQUAL -1)
        message(FATAL_ERROR "the entry of the editor does not name the type of its files")
    endif()
    expect(4 "无法加载文字对象库" ${CMAKE_COMMAND} -E env LANGUAGE=zh_CN
        ${prefix}/bin/pagehost --plugin ${WORK_DIR}/none.so)
endif()
