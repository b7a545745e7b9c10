# The sanitizer presets; every target of the project is built with the same one. What they find in
# the tests and in the programs that tests start goes into the folder `reports`.

set(sanitizer_reports "${CMAKE_BINARY_DIR}/reports")
set(sanitizer_exceptions "${PROJECT_SOURCE_DIR}/tests/sanitizers")
# Tests end the program by signals, of which it is to die as it does without a sanitizer.
set(sanitizer_signals "handle_segv=0:handle_sigbus=0:handle_sigfpe=0:handle_sigill=0")
# What tests are run with, as properties of them.
set(sanitizer_environment "")

if(CORVANE_SANITIZE STREQUAL "address")
    # The check of objects' types opens pipes to look at memory, and takes it for broken where a test
    # leaves the program no file descriptors.
    add_compile_options(-fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
    # What was freed is kept for a while; tests that weigh the program want it to be little. One test
    # loads a library of its own before the sanitizer's.
    set(sanitizer_environment
        ENVIRONMENT "ASAN_OPTIONS=log_path=${sanitizer_reports}/address:${sanitizer_signals}:quarantine_size_mb=4:verify_asan_link_order=0"
        ENVIRONMENT_MODIFICATION "LSAN_OPTIONS=set:suppressions=${sanitizer_exceptions}/foreign-leaks.txt:print_suppressions=0")
elseif(CORVANE_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
    # Where a library that it cannot see into ends a function with an unlocking, that looks like the
    # caller's, of a lock that nobody has taken.
    set(sanitizer_environment ENVIRONMENT
        "TSAN_OPTIONS=report_mutex_bugs=0:log_path=${sanitizer_reports}/thread:${sanitizer_signals}:suppressions=${sanitizer_exceptions}/foreign-races.txt:print_suppressions=0")
elseif(NOT CORVANE_SANITIZE STREQUAL "")
    message(FATAL_ERROR "CORVANE_SANITIZE is address, thread or empty")
endif()

if(CORVANE_SANITIZE)
    file(MAKE_DIRECTORY "${sanitizer_reports}")
    # Enough to run well and to name lines; more would take the compiler twice the time.
    add_compile_options(-O1 -g1)
endif()
