# vela7_add_gui_test(NAME SOURCES ... [LIBS ...] [HEADLESS ...])
#   A GoogleTest program that runs inside a wx application, on a display of its own. HEADLESS holds options of
#   the launcher, such as -s 1600x1200x24.
# vela7_add_test(NAME SOURCES ... [LIBS ...])
#   A GoogleTest program that gets by without wx and without a display.
# Both are one test of ctest, with the variables of the list VELA7_TEST_ENV in its environment.

function(_vela7_add_test_program name main)
    cmake_parse_arguments(PARSE_ARGV 2 arg "" "" "SOURCES;LIBS;HEADLESS")
    if(NOT arg_SOURCES OR arg_UNPARSED_ARGUMENTS)
        message(FATAL_ERROR "${name}: SOURCES missing, or unknown arguments: ${arg_UNPARSED_ARGUMENTS}")
    endif()
    add_executable(${name} ${arg_SOURCES})
    target_link_libraries(${name} PRIVATE ${main} ${arg_LIBS})
    if(main STREQUAL "vela7_gui_main")
        set(launcher ${CMAKE_CURRENT_FUNCTION_LIST_DIR}/headless ${arg_HEADLESS})
    endif()
    add_test(NAME ${name} COMMAND ${launcher} $<TARGET_FILE:${name}>)
    set_tests_properties(${name} PROPERTIES TIMEOUT 120 ENVIRONMENT "${VELA7_TEST_ENV}"
        ENVIRONMENT_MODIFICATION "DISPLAY=unset:;WAYLAND_DISPLAY=unset:"
        FAIL_REGULAR_EXPRESSION "assertion failed: hook") # what a back-end handed to a window
endfunction()

function(vela7_add_gui_test name)
    _vela7_add_test_program(${name} vela7_gui_main ${ARGN})
endfunction()

function(vela7_add_test name)
    _vela7_add_test_program(${name} vela7_plain_main ${ARGN})
endfunction()
