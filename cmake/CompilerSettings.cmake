# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# The language, the warnings and the definitions that every target of ours shares, as one interface target.
add_library(quorvane_settings INTERFACE)
target_compile_features(quorvane_settings INTERFACE cxx_std_20)
# Some libraries ask for it; everywhere, since all share one prefix.
target_compile_options(quorvane_settings INTERFACE -pthread)
target_compile_options(quorvane_settings INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion
  # Designated initialisers leave out what keeps its default.
  -Wno-missing-field-initializers
  # clang tells of what libstdc++ 12 uses inside std::ranges::stable_sort, and of the macro around a protocol's
  # header that has an argument called "namespace".
  $<$<CXX_COMPILER_ID:Clang>:-Wno-deprecated-declarations -Wno-keyword-macro>
  # In a unity build every source is included, so what is unnamed in it looks as if a header had it.
  $<$<BOOL:${CMAKE_UNITY_BUILD}>:-Wno-subobject-linkage>
  -Wnon-virtual-dtor -Woverloaded-virtual -Wimplicit-fallthrough)
target_compile_definitions(quorvane_settings INTERFACE
  QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

set(QUORVANE_SANITIZE "" CACHE STRING "Sanitizers for every target, e.g. address,undefined")
if(QUORVANE_SANITIZE)
  target_compile_options(quorvane_settings INTERFACE
    -fsanitize=${QUORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvane_settings INTERFACE -fsanitize=${QUORVANE_SANITIZE})
endif()
