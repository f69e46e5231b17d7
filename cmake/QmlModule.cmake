# SPDX-FileCopyrightText: 2026 The Quorvane authors
# SPDX-License-Identifier: GPL-3.0-or-later
#
# quorvane_qml_module(PATH URI uri FILES name... [SINGLETONS name...] [USES uri...] [EVERYWHERE])
# Makes the room's views, PATH/qml/NAME.qml, a QML module that is part of the room's library: a class of the room
# registers it by name, so there is no plugin to find. EVERYWHERE puts it where every engine looks by itself;
# USES names modules whose types its C++ types hand out.
function(quorvane_qml_module path)
  cmake_parse_arguments(module "EVERYWHERE" "URI" "FILES;SINGLETONS;USES" ${ARGN})
  quorvane_room_target(${path} target)
  set(files "")
  foreach(name IN LISTS module_FILES)
    set_source_files_properties(qml/${name}.qml PROPERTIES QT_RESOURCE_ALIAS ${name}.qml)
    list(APPEND files qml/${name}.qml)
  endforeach()
  foreach(name IN LISTS module_SINGLETONS)
    set_source_files_properties(qml/${name}.qml PROPERTIES QT_QML_SINGLETON_TYPE TRUE)
  endforeach()
  string(REPLACE "." "/" folder ${module_URI})
  set(prefix "/")
  if(module_EVERYWHERE)
    set(prefix "/qt-project.org/imports")
  endif()
  set(cache "")
  if(NOT QUORVANE_QML_CACHE)
    # What the class of the room asks for by name is then empty.
    set(cache NO_CACHEGEN)
    set(stub "${CMAKE_CURRENT_BINARY_DIR}/no_qml_cache.cpp")
    set(name "qInitResources_qmlcache_${target}")
    file(CONFIGURE OUTPUT "${stub}" CONTENT "int ${name}();\nint ${name}() { return 1; }\n")
    target_sources(${target} PRIVATE "${stub}")
  endif()
  qt_add_qml_module(${target}
    URI ${module_URI}
    VERSION 1.0
    NO_PLUGIN
    ${cache}
    RESOURCE_PREFIX ${prefix}
    DEPENDENCIES QtQuick ${module_USES}
    OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/${folder}"
    QML_FILES ${files})
  # The generated registration includes the headers by their bare names.
  target_include_directories(${target} PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  # What the QML compiler writes is not ours to mend.
  get_target_property(sources ${target} SOURCES)
  list(FILTER sources INCLUDE REGEX "qmlcache|qmltyperegistrations")
  set_source_files_properties(${sources} PROPERTIES COMPILE_OPTIONS "-w")
endfunction()
