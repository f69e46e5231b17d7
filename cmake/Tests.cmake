# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# quorvane_test(NAME ROOM path [ROOMS room...] [LINK library...] [SESSION bus|none] SOURCES file...)
# One QtTest program that links its own room and the support library only. SESSION bus runs it in a private session
# bus with private HOME and XDG folders (tests/support/session).
find_package(Qt6 6.4 REQUIRED COMPONENTS Test)

function(quorvane_test name)
  cmake_parse_arguments(test "" "ROOM;SESSION" "LINK;SOURCES" ${ARGN})
  add_executable(${name} ${test_SOURCES})
  quorvane_room_target(${test_ROOM} room_target)
  quorvane_use_prefix(${name})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE quorvane_settings ${room_target} ${test_LINK} Qt6::Test)
  set_target_properties(${name} PROPERTIES RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/tests")
  if(test_SESSION STREQUAL "bus")
    add_test(NAME ${name} COMMAND "${PROJECT_SOURCE_DIR}/tests/support/session" $<TARGET_FILE:${name}>)
  else()
    add_test(NAME ${name} COMMAND ${name})
  endif()
  set_tests_properties(${name} PROPERTIES TIMEOUT 300 ENVIRONMENT "QT_QPA_PLATFORM=offscreen;LC_ALL=C.UTF-8")
endfunction()
