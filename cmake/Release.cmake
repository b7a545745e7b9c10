# The release program: small, since what takes time happens in the system and the toolkit; and
# without what nothing calls.

set(CMAKE_CXX_FLAGS_RELEASE "-Os -DNDEBUG")
if(NOT APPLE)
    add_compile_options($<$<CONFIG:Release>:-ffunction-sections>
        $<$<CONFIG:Release>:-fdata-sections>)
    add_link_options($<$<CONFIG:Release>:-Wl,--gc-sections>)
endif()
