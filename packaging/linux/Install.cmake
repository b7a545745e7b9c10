# What `cmake --install` puts where a desktop looks for it.

include(GNUInstallDirs)

# Software catalogues know a program by its host name, most general part first.
string(REPLACE "." ";" host_parts "${CORVANE_HOST_NAME}")
list(REVERSE host_parts)
list(JOIN host_parts "." reversed_host_name)
foreach(page corvane.1 corvane.metainfo.xml)
    configure_file("${PROJECT_SOURCE_DIR}/packaging/linux/${page}.in"
        "${CMAKE_CURRENT_BINARY_DIR}/${page}" @ONLY)
endforeach()

install(TARGETS corvane)
install(FILES "${PROJECT_SOURCE_DIR}/packaging/linux/corvane.desktop"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/applications")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/corvane.metainfo.xml"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/metainfo")
install(FILES "${CMAKE_CURRENT_BINARY_DIR}/corvane.1"
    DESTINATION "${CMAKE_INSTALL_MANDIR}/man1")
install(FILES "${PROJECT_SOURCE_DIR}/resources/AppIcon.svg"
    DESTINATION "${CMAKE_INSTALL_DATADIR}/icons/hicolor/scalable/apps" RENAME corvane.svg)
