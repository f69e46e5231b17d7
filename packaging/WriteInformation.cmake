# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# Writes what the build says about itself, when it has changed: OUTPUT, from SOURCE_FOLDER, VERSION, BUILD_NUMBER,
# FEED_URL and FEED_KEY (may be empty). Without a given number the build's is how many commits lead to it; outside of a
# whole git checkout nobody knows that, and it is 0.
set(number "${BUILD_NUMBER}")
if(number STREQUAL "" AND EXISTS "${SOURCE_FOLDER}/.git")
  execute_process(COMMAND git -C "${SOURCE_FOLDER}" rev-parse --is-shallow-repository
    OUTPUT_VARIABLE is_shallow OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  if(is_shallow STREQUAL "false")
    execute_process(COMMAND git -C "${SOURCE_FOLDER}" rev-list --count HEAD
      OUTPUT_VARIABLE number OUTPUT_STRIP_TRAILING_WHITESPACE ERROR_QUIET)
  endif()
endif()
if(number STREQUAL "")
  set(number 0)
endif()

set(information "{}")
function(add_text key value)
  string(REPLACE "\\" "\\\\" value "${value}")
  string(REPLACE "\"" "\\\"" value "${value}")
  string(JSON information SET "${information}" "${key}" "\"${value}\"")
  set(information "${information}" PARENT_SCOPE)
endfunction()
add_text(CFBundleShortVersionString "${VERSION}")
add_text(CFBundleVersion "${number}")
if(FEED_URL)
  add_text(SUFeedURL "${FEED_URL}")
endif()
if(FEED_KEY)
  add_text(SUPublicEDKey "${FEED_KEY}")
endif()
set(before "")
if(EXISTS "${OUTPUT}")
  file(READ "${OUTPUT}" before)
endif()
if(NOT before STREQUAL "${information}\n")
  file(WRITE "${OUTPUT}" "${information}\n")
endif()
