# The Debian package: `cpack -G DEB` in the build folder, or ./package.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillstacks)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "${QUILLSTACKS_MAINTAINER}")
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "library of prompts for language models, one hot key away")
file(READ "${CMAKE_CURRENT_LIST_DIR}/debian/description" CPACK_PACKAGE_DESCRIPTION)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${CMAKE_CURRENT_LIST_DIR}/debian/description")
set(CPACK_PACKAGE_DIRECTORY "${PROJECT_BINARY_DIR}/package")

# Below /usr, whatever prefix the build folder has: the bus's entry is written for the place where it will stand.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS ${CMAKE_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS})
set(CPACK_STRIP_FILES ON)

# quillstacks_1.0.0-1_amd64.deb: what the version shows in parentheses is the package's revision.
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE "${QUILLSTACKS_BUILD_NUMBER}")
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
# What is linked is found by itself, and its packages hold the plugins that are loaded. What is called is the command of
# the desktop entry's actions.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
set(CPACK_DEBIAN_PACKAGE_DEPENDS libglib2.0-bin)
# In this order: a session bus, the keys' glyphs, the icons' theme, Wayland, what a click on a link or folder needs, the
# folder of the log's export, and updates over HTTPS.
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "default-dbus-session-bus | dbus-session-bus, fonts-dejavu-core, \
hicolor-icon-theme, qt6-wayland, xdg-desktop-portal, xdg-utils, xdg-user-dirs, ca-certificates")
include(CPack)
