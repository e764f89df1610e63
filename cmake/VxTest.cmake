# SPDX-License-Identifier: MIT

# vx_add_test(<name> <sources>... [LIBS <targets>...])
#
# Adds the Qt Test program <name> and registers it with ctest. Without LIBS it links vxcore (all
# objects of libvxarttext) and the host libraries; with LIBS it links just those targets. The
# support library (test font, recording host) is linked in both cases.
function(vx_add_test name)
    cmake_parse_arguments(arg "" "" "LIBS" ${ARGN})
    if(NOT arg_LIBS)
        set(arg_LIBS vxcore)
    endif()
    add_executable(${name} ${arg_UNPARSED_ARGUMENTS})
    target_link_libraries(${name} PRIVATE vx_test_support ${arg_LIBS} Qt5::Widgets Qt5::Test)
    target_compile_definitions(${name} PRIVATE
        VX_TEST_DATA="${PROJECT_SOURCE_DIR}/tests/data"
        VX_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
    add_test(NAME ${name} COMMAND ${name})
    vx_set_test_environment(${name})
endfunction()

# The surroundings in which every test runs; also for tests that are scripts.
function(vx_set_test_environment name)
    set(environment QT_QPA_PLATFORM=offscreen LC_ALL=C.UTF-8 QT_SCALE_FACTOR=1)
    if(VX_SANITIZE MATCHES "address")
        list(APPEND environment
            LSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/lsan.supp:print_suppressions=0)
    endif()
    if(VX_SANITIZE MATCHES "undefined")
        list(APPEND environment UBSAN_OPTIONS=print_stacktrace=1:halt_on_error=1)
    endif()
    if(VX_SANITIZE MATCHES "thread")
        list(APPEND environment
            TSAN_OPTIONS=suppressions=${PROJECT_SOURCE_DIR}/cmake/tsan.supp:second_deadlock_stack=1)
    endif()
    set(timeout 120)
    if(VX_SANITIZE)
        set(timeout 400)
    endif()
    set_tests_properties(${name} PROPERTIES ENVIRONMENT "${environment}" TIMEOUT ${timeout})
endfunction()
