# To include where VELA7_TEST_ENV is put together, when the build is instrumented: VELA7_SANITIZER_ENV.
# G_SLICE gives each GLib object memory of its own, without which its end goes unnoticed. The slow unwinder sees
# through libraries without frame pointers, which the suppressions need. A finding is told from a failed test.
string(CONCAT VELA7_ASAN_OPTIONS
    "detect_leaks=1:detect_stack_use_after_return=1:check_initialization_order=1:strict_init_order=1:"
    "strict_string_checks=1:fast_unwind_on_malloc=0:exitcode=99")
set(VELA7_LSAN_SUPPRESSIONS "${CMAKE_CURRENT_LIST_DIR}/lsan.supp")
if(VELA7_GTK STREQUAL "3") # it has more of them
    file(READ "${VELA7_LSAN_SUPPRESSIONS}" suppressions)
    file(READ "${CMAKE_CURRENT_LIST_DIR}/lsan3.supp" more)
    set(VELA7_LSAN_SUPPRESSIONS "${CMAKE_CURRENT_BINARY_DIR}/lsan.supp")
    file(WRITE "${VELA7_LSAN_SUPPRESSIONS}" "${suppressions}${more}")
endif()
set(VELA7_SANITIZER_ENV
    "ASAN_OPTIONS=${VELA7_ASAN_OPTIONS}"
    "LSAN_OPTIONS=suppressions=${VELA7_LSAN_SUPPRESSIONS}:print_suppressions=0:exitcode=99"
    "TSAN_OPTIONS=suppressions=${CMAKE_CURRENT_LIST_DIR}/tsan.supp:print_suppressions=0:exitcode=99"
    "UBSAN_OPTIONS=halt_on_error=1:print_stacktrace=1:exitcode=99"
    "G_SLICE=always-malloc")
