# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# In a unity build, what nearly every source includes is compiled once for all targets. In other builds each source
# stands by itself, so that one that forgot to include what it uses is found (./dev lint).
if(CMAKE_UNITY_BUILD)
  set(source "${PROJECT_BINARY_DIR}/prefix.cpp")
  file(CONFIGURE OUTPUT "${source}" CONTENT "")
  add_library(quorvane_prefix OBJECT "${source}")
  set_target_properties(quorvane_prefix PROPERTIES AUTOMOC OFF AUTORCC OFF)
  target_link_libraries(quorvane_prefix PRIVATE quorvane_settings Qt6::Core QCoro6::Core tl::expected)
  target_precompile_headers(quorvane_prefix PRIVATE
    <algorithm> <array> <chrono> <functional> <map> <memory> <optional> <string> <utility> <vector>
    <QByteArray> <QDateTime> <QFile> <QHash> <QJsonDocument> <QJsonObject> <QList> <QObject> <QPointer> <QSet> <QString>
    <QStringList> <QTimer> <QUrl> <QVariant> <QCoroTask> <tl/expected.hpp>)
  # Lets ccache see the prefix.
  target_compile_options(quorvane_settings INTERFACE $<$<CXX_COMPILER_ID:GNU>:-fpch-preprocess>)
endif()

# Has the sources of `target` begin with the common prefix where there is one.
function(quorvane_use_prefix target)
  if(TARGET quorvane_prefix)
    target_precompile_headers(${target} REUSE_FROM quorvane_prefix)
    # Mostly empty, and then quicker without.
    set_source_files_properties("${CMAKE_CURRENT_BINARY_DIR}/${target}_autogen/mocs_compilation.cpp"
      PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
  endif()
endfunction()
