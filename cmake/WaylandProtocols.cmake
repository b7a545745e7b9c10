# Turns descriptions of Wayland protocols into a library.

enable_language(C)
find_package(PkgConfig REQUIRED)
pkg_check_modules(WAYLAND REQUIRED IMPORTED_TARGET wayland-client wayland-cursor)
pkg_get_variable(WAYLAND_SCANNER wayland-scanner wayland_scanner)
pkg_get_variable(WAYLAND_PROTOCOLS wayland-protocols pkgdatadir)
find_package(PlasmaWaylandProtocols REQUIRED)

# What generated code looks like is not ours to decide: no warnings are asked for.
function(add_wayland_protocols target)
    set(folder "${CMAKE_CURRENT_BINARY_DIR}/${target}")
    file(MAKE_DIRECTORY "${folder}")
    foreach(description ${ARGN})
        get_filename_component(name "${description}" NAME_WE)
        set(header "${folder}/${name}-client-protocol.h")
        set(code "${folder}/${name}-protocol.c")
        add_custom_command(OUTPUT "${header}" "${code}"
            COMMAND "${WAYLAND_SCANNER}" client-header "${description}" "${header}"
            COMMAND "${WAYLAND_SCANNER}" private-code "${description}" "${code}"
            DEPENDS "${description}" VERBATIM)
        list(APPEND sources "${header}" "${code}")
    endforeach()
    add_library(${target} STATIC ${sources})
    target_include_directories(${target} SYSTEM PUBLIC "${folder}")
    target_link_libraries(${target} PUBLIC PkgConfig::WAYLAND)
endfunction()
