# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# The rooms of the house and who may use whom. This table is the only place where it is written down:
# configuring fails on a link that goes against it, tests/layers.py fails on such an include.
set(QUORVANE_ROOMS
  "core:"
  "posix:core"
  "async:"
  "process:core"
  "process/linux:core posix process"
  "ui/format:core"
  "calendars/records:core"
  "calendars/ical:core calendars/records"
  "calendars:core async posix process calendars/records"
  "calendars/linux:core async posix process calendars calendars/records calendars/ical"
  "ui/dialogs:core async calendars"
  "confinement:core posix"
  "calendar-reader:core posix confinement calendars/records calendars/ical"
  "update-unpacker:core posix confinement"
  "ui/components:core"
  "ui/components/linux:core async ui/components"
  "alert:core ui/format ui/components"
  "alert/linux:core ui/format ui/components alert"
  "network:core async"
  "network/linux:core async network"
  "updates:core async posix network"
  "updates/linux:core async posix process network updates"
  "model:core async posix ui/format process calendars calendars/records alert network"
  "model/linux:core async ui/format process calendars calendars/records alert model"
  "ui/agenda:core async ui/format ui/components calendars/records model"
  "ui/calendars:core async ui/format ui/components calendars calendars/records model"
  "ui/settings:core async ui/format ui/components model"
  "ui/sheet:core async ui/format ui/components model"
  "ui/dashboard:core async ui/format ui/components ui/agenda ui/calendars ui/settings ui/sheet model"
  "instance:core"
  "instance/linux:core posix instance"
  "launch:core"
  "launch/linux:core async posix process launch"
  "commands:core async ui/format calendars calendars/records network model launch"
  "ui/tray:core async ui/format model"
  "ui/tray/linux:core async ui/components ui/tray"
  "app:core async posix process process/linux ui/format ui/components ui/components/linux ui/agenda ui/calendars ui/settings ui/sheet ui/dashboard ui/dialogs calendars calendars/records calendars/ical calendars/linux alert alert/linux model model/linux network network/linux launch launch/linux commands ui/tray ui/tray/linux instance instance/linux updates updates/linux")

# quorvane_room(PATH [ROOMS room...] [LINK library...] [PRIVATE_LINK library...] SOURCES file...)
# One static library per room, named quorvane_<path with underscores>.
function(quorvane_room path)
  cmake_parse_arguments(room "" "" "ROOMS;LINK;PRIVATE_LINK;SOURCES" ${ARGN})
  quorvane_room_target(${path} target)
  add_library(${target} STATIC ${room_SOURCES})
  target_include_directories(${target} PUBLIC "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${target} PUBLIC quorvane_settings ${room_LINK} PRIVATE ${room_PRIVATE_LINK})
  quorvane_use_prefix(${target})
  quorvane_use_rooms(${target} ${path} ${room_ROOMS})
endfunction()

# Links `target`, which belongs to the room `path`, to other rooms, and refuses what the table does not allow.
function(quorvane_use_rooms target path)
  set(allowed "")
  foreach(row IN LISTS QUORVANE_ROOMS)
    if(row MATCHES "^${path}:(.*)$")
      string(REPLACE " " ";" allowed "${CMAKE_MATCH_1}")
    endif()
  endforeach()
  foreach(used IN LISTS ARGN)
    if(NOT used IN_LIST allowed)
      message(FATAL_ERROR "${path}/ may not use ${used}/ (see cmake/Rooms.cmake)")
    endif()
    quorvane_room_target(${used} used_target)
    target_link_libraries(${target} PUBLIC ${used_target})
  endforeach()
endfunction()

function(quorvane_room_target path out)
  string(REPLACE "/" "_" name ${path})
  set(${out} quorvane_${name} PARENT_SCOPE)
endfunction()
