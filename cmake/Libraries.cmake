# The libraries that the portable code and its tests use.

if(CMAKE_CROSSCOMPILING)
    # Debian's packages hold headers and sources that suit every system. Their folders are taken one
    # by one: all of /usr/include would hide the target's own headers.
    file(MAKE_DIRECTORY "${PROJECT_BINARY_DIR}/include")
    file(CREATE_LINK /usr/include/nlohmann "${PROJECT_BINARY_DIR}/include/nlohmann" SYMBOLIC)
    add_library(nlohmann_json::nlohmann_json INTERFACE IMPORTED)
    target_include_directories(nlohmann_json::nlohmann_json
        INTERFACE "${PROJECT_BINARY_DIR}/include")
    if(CORVANE_TESTS)
        add_subdirectory(/usr/src/googletest googletest EXCLUDE_FROM_ALL SYSTEM)
    endif()
else()
    find_package(nlohmann_json REQUIRED)
    if(CORVANE_TESTS)
        find_package(GTest REQUIRED)
    endif()
endif()
find_package(Threads REQUIRED)
