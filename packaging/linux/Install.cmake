# What `cmake --install` puts where a desktop looks for it.

include(GNUInstallDirs)
set(CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE
    GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
set(package_files "${CMAKE_CURRENT_LIST_DIR}")
set(icon_drawing "${PROJECT_SOURCE_DIR}/resources/AppIcon.svg")

# Software catalogues know a program by its host name, most general part first.
string(REPLACE "." ";" host_parts "${CORVANE_HOST_NAME}")
list(REVERSE host_parts)
list(JOIN host_parts "." reversed_host_name)
# The package needs the libraries of the distribution it was built on, so its version names it. The
# tilde sorts a newer release of the distribution behind an older one, and both before a "-1" that
# the distribution may make itself.
cmake_host_system_information(RESULT distribution QUERY DISTRIB_ID)
cmake_host_system_information(RESULT distribution_release QUERY DISTRIB_VERSION_ID)
set(package_revision "1~${distribution}${distribution_release}")
# The time of the build, or what SOURCE_DATE_EPOCH says.
string(TIMESTAMP release_time "%a, %d %b %Y %H:%M:%S +0000" UTC)
foreach(page changelog corvane.1 corvane.metainfo.xml)
    configure_file("${package_files}/${page}.in" "${CMAKE_CURRENT_BINARY_DIR}/${page}" @ONLY)
endforeach()

install(TARGETS corvane)
install(FILES "${package_files}/corvane.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/corvane.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${PROJECT_SOURCE_DIR}/CHANGELOG.md"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/corvane")
install(FILES "${PROJECT_SOURCE_DIR}/LICENSE"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/corvane" RENAME copyright)
install(FILES "${icon_drawing}"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" RENAME corvane.svg)

# One drawing in the sizes that panels and menus ask for.
foreach(size 16 22 24 32 48 64 128 256)
    set(icon "${CMAKE_CURRENT_BINARY_DIR}/icons/${size}.png")
    add_custom_command(OUTPUT "${icon}"
        COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/icons"
        COMMAND "${RSVG_CONVERT}" --width ${size} --height ${size} --output "${icon}"
            "${icon_drawing}"
        DEPENDS "${icon_drawing}"
        COMMENT "Rendering the application icon, ${size} pixels wide"
        VERBATIM)
    list(APPEND installed_files "${icon}")
    install(FILES "${icon}" RENAME corvane.png
        DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/${size}x${size}/apps")
endforeach()

# Without the time of day, so that the same sources give the same files.
foreach(page corvane.1 changelog)
    add_custom_command(OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/${page}.gz"
        COMMAND gzip -9nc ${page} > ${page}.gz
        DEPENDS "${CMAKE_CURRENT_BINARY_DIR}/${page}"
        COMMENT "Compressing ${page}"
        VERBATIM)
    list(APPEND installed_files "${CMAKE_CURRENT_BINARY_DIR}/${page}.gz")
endforeach()
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/corvane.1.gz"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/changelog.gz"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/doc/corvane"
    RENAME changelog.Debian.gz)

add_custom_target(corvane_installed_files ALL DEPENDS ${installed_files})
