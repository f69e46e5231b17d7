# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# The Debian package: `./dev package`, or `cpack` in a build folder.
set(CPACK_GENERATOR DEB)
set(CPACK_PACKAGE_NAME quorvane)
set(CPACK_PACKAGE_VERSION "${PROJECT_VERSION}")
set(CPACK_PACKAGE_CONTACT "The Quorvane authors <quorvane@tarnel.me>")
set(CPACK_PACKAGING_INSTALL_PREFIX /usr)
set(CPACK_STRIP_FILES ON)
set(CPACK_INSTALL_DEFAULT_DIRECTORY_PERMISSIONS
  OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)

set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION utils)
set(CPACK_DEBIAN_PACKAGE_PRIORITY optional)
set(CPACK_DEBIAN_COMPRESSION_TYPE xz)
set(CPACK_DEBIAN_PACKAGE_DESCRIPTION "screen-filling alerts before meetings start
Quorvane reads calendars and, one minute before each video meeting, covers
every display with an alert that stays until you say that you are ready,
join, or ask to be reminded again.

It reads the calendars of Evolution Data Server (GNOME, Google, Exchange and
CalDAV accounts that are set up on the desktop) and folders of iCalendar
files, finds the link to the meeting, shows what is coming in the next
fourteen days, and can ring a phone, too. It works on X11 and Wayland.")

# The libraries are found by dpkg-shlibdeps; what is looked up at run time is listed once, for ./dev as for this.
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON)
file(STRINGS "${PROJECT_SOURCE_DIR}/tools/packages" lines)
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${PROJECT_SOURCE_DIR}/tools/packages")
set(depends "")
set(section "")
foreach(line IN LISTS lines)
  # A bracket would hold a list together.
  string(REPLACE "[" "<" line "${line}")
  if(line MATCHES "^<([a-z]+)")
    set(section ${CMAKE_MATCH_1})
  elseif(section STREQUAL "run" AND line MATCHES "^([a-z0-9.+-]+)")
    list(APPEND depends ${CMAKE_MATCH_1})
  endif()
endforeach()
list(JOIN depends ", " CPACK_DEBIAN_PACKAGE_DEPENDS)
string(JOIN ", " CPACK_DEBIAN_PACKAGE_RECOMMENDS
  "default-dbus-session-bus | dbus-session-bus" evolution-data-server
  "gnome-keyring | libpam-kwallet5 | keepassxc" xdg-desktop-portal)

set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "")
foreach(file conffiles postinst prerm postrm)
  list(APPEND CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${CMAKE_CURRENT_SOURCE_DIR}/debian/${file}")
endforeach()
include(CPack)
