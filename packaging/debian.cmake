# SPDX-License-Identifier: MIT
# `cmake --build build --target package` makes a .deb.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quillberry)
set(CPACK_PACKAGE_CONTACT "The Quillberry authors <hello@quillberry.org>")
set(CPACK_PACKAGE_VERSION ${PROJECT_VERSION})
set(CPACK_PACKAGE_DESCRIPTION_SUMMARY "one plain-text note, always at hand")
set(CPACK_PACKAGE_DESCRIPTION
"Quillberry keeps one plain-text note in a small window that stays above the
others and on every workspace. A global shortcut shows and hides it, every
edit is saved by itself, and Escape leads back to what you were doing.
.
It lives in the tray, and does without one as well. The note is one text file
in UTF-8.")
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
    OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
# With DESTDIR the prefix is the one that the files will have.
set(CPACK_SET_DESTDIR ON)
set(CPACK_INSTALL_PREFIX /usr)
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE https://quillberry.org/)
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)  # among them libqt6gui6, which has the plug-in for X11
# What no library names: the plug-ins for Wayland and for SVG, without which the tray has an icon of one grey; Qt's own
# texts in other languages than English; the icons' theme; the font of the pushpin in the title; the bus; gapplication,
# which the desktop entry's actions call.
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
       "default-dbus-session-bus | dbus-session-bus" fonts-noto-color-emoji hicolor-icon-theme libglib2.0-bin
       libqt6svg6 qt6-translations-l10n qt6-wayland)

execute_process(COMMAND date --utc --date ${RELEASE_DATE} +%s OUTPUT_VARIABLE releaseSeconds
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)
execute_process(COMMAND date --utc --date ${RELEASE_DATE} --rfc-email OUTPUT_VARIABLE releaseTime
                OUTPUT_STRIP_TRAILING_WHITESPACE COMMAND_ERROR_IS_FATAL ANY)

file(READ ${PROJECT_SOURCE_DIR}/LICENSE license)
string(REGEX REPLACE "^.*\n\n(Permission)" "\\1" license "${license}")
string(REGEX REPLACE "\n\n" "\n.\n" license "${license}")
string(REGEX REPLACE "\n(.)" "\n \\1" license " ${license}")
configure_file(debian/copyright.in debian/copyright @ONLY)
configure_file(debian/changelog.in debian/changelog @ONLY)

set(CPACK_PROJECT_CONFIG_FILE ${CMAKE_CURRENT_SOURCE_DIR}/debian/settle-time.cmake)
set(CPACK_PRE_BUILD_SCRIPTS ${CMAKE_CURRENT_SOURCE_DIR}/debian/finish-files.cmake)
set(CPACK_QUILLBERRY_RELEASE_SECONDS ${releaseSeconds})
set(CPACK_QUILLBERRY_DOCUMENTS
    ${CMAKE_CURRENT_BINARY_DIR}/debian/copyright ${CMAKE_CURRENT_BINARY_DIR}/debian/changelog
    ${PROJECT_SOURCE_DIR}/CHANGELOG.md)
include(CPack)
