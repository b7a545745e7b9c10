# What `cpack` packs: corvane_<version>-1~<distribution>_<architecture>.deb, and a tarball that runs
# where it is unpacked.

set(CPACK_GENERATOR DEB TGZ)
set(CPACK_PACKAGE_NAME corvane)
set(CPACK_PACKAGE_VENDOR "The Corvane authors")
set(CPACK_PACKAGE_CONTACT "${CORVANE_MAINTAINER}")
set(CPACK_PACKAGE_HOMEPAGE_URL "${CORVANE_WEB_PAGE}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "auto-clicker for X11 desktops")
set(CPACK_PACKAGE_FILE_NAME "corvane-${PROJECT_VERSION}-${CMAKE_SYSTEM_PROCESSOR}")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${package_revision}")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
# Clicks on Plasma 6 and GNOME 48, where Debian has the library; the pointer on GNOME; the texts that
# the toolkit adds, such as a text field's menu, in other languages than English.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "libei1, libpipewire-0.3-0 | libpipewire-0.3-0t64, qt6-translations-l10n")
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION
"Corvane lives in the panel and clicks the left mouse button, at the cursor or
only while the cursor is inside a zone drawn on the screen, at a rate per
second, minute or hour, without end or up to a limit. A zone can follow the
window of another program. Super+Shift+Y starts and stops it from anywhere.")

include(CPack)
