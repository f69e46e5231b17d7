# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# What depends on the folder that it is installed below, which may be chosen as late as that: by whom the program is
# started at login.
set(unit me.tarnel.quorvane-app.service)
string(REPLACE "%" "%%" QUORVANE_EXECUTABLE "${executable}")
configure_file("${sources}/systemd/${unit}.in" "${made}/${unit}" @ONLY)
# In a literal lib: where the service manager looks is no matter of the machine's architecture.
file(INSTALL "${made}/${unit}" DESTINATION "${CMAKE_INSTALL_PREFIX}/lib/systemd/user")

# Sessions look into the system's folder only.
set(settings "${CMAKE_INSTALL_PREFIX}/etc")
if(CMAKE_INSTALL_PREFIX STREQUAL "/usr")
  set(settings /etc)
endif()
file(INSTALL "${sources}/autostart/me.tarnel.Quorvane.desktop" DESTINATION "${settings}/xdg/autostart")
