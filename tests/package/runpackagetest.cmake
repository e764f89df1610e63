# SPDX-License-Identifier: MIT
# Arguments: BUILD_DIR, BUILD_TYPE, SOURCE_DIR, WORK_DIR, LIBDIR, CXX_COMPILER, SANITIZE.

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

# A desktop finds the editor, the type of its files and their icons.
if(EXISTS ${prefix}/bin/pagehost)
    run(${prefix}/bin/pagehost --version)
    set(id org.vxarttext.pagehost)
    foreach(file applications/${id}.desktop metainfo/${id}.metainfo.xml mime/packages/${id}.xml
            icons/hicolor/scalable/apps/${id}.svg
            icons/hicolor/scalable/mimetypes/application-x-vxpage.svg man/man1/pagehost.1)
        if(NOT EXISTS ${prefix}/share/${file})
            message(FATAL_ERROR "share/${file} is not installed")
        endif()
    endforeach()
endif()
