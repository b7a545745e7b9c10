# The sanitizer presets; every target of the project is built with the same one.

if(CORVANE_SANITIZE STREQUAL "address")
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
elseif(CORVANE_SANITIZE STREQUAL "thread")
    add_compile_options(-fsanitize=thread -fno-omit-frame-pointer)
    add_link_options(-fsanitize=thread)
elseif(NOT CORVANE_SANITIZE STREQUAL "")
    message(FATAL_ERROR "CORVANE_SANITIZE is address, thread or empty")
endif()
