# tsms_library(<name> FOLDER <folder> SOURCES <files> [QT <modules>] [LINK <targets>])
# One static library of src/<folder> with its rooms. It may link only what the layer table grants them.
include("${CMAKE_CURRENT_LIST_DIR}/LayerTable.cmake")

# All that the compiler writes before a source can be read: what the linter needs and no more.
add_custom_target(tsms_generated)

function(tsms_library name)
  cmake_parse_arguments(ARG "" "FOLDER" "SOURCES;QT;LINK;PRIVATE_LINK" ${ARGN})
  set(granted "${ARG_FOLDER}")
  foreach(row IN LISTS TSMS_LAYERS)
    if(row MATCHES "^${ARG_FOLDER}(/[a-z]+)?:(.*)$")
      string(REGEX MATCHALL "[a-z/]+" rooms "${CMAKE_MATCH_2}")
      list(TRANSFORM rooms REPLACE "/.*" "")
      list(APPEND granted ${rooms})
    endif()
  endforeach()
  foreach(target IN LISTS ARG_LINK ARG_PRIVATE_LINK)
    if(target MATCHES "^tsms_([a-z]+)")
      if(NOT CMAKE_MATCH_1 IN_LIST granted)
        message(FATAL_ERROR "${name} (src/${ARG_FOLDER}) may not use ${target}; see cmake/LayerTable.cmake")
      endif()
    endif()
  endforeach()
  add_library(${name} STATIC ${ARG_SOURCES})
  target_include_directories(${name} PUBLIC "${CMAKE_SOURCE_DIR}/src")
  set(qt ${ARG_QT})
  list(TRANSFORM qt PREPEND Qt6::)
  target_link_libraries(${name} PUBLIC ${qt} ${ARG_LINK} PRIVATE ${ARG_PRIVATE_LINK})
  if("Widgets" IN_LIST ARG_QT)
    target_link_libraries(${name} PRIVATE tsms_options)
    tsms_read_once(${name} tsms_widget_headers)
  else()
    target_link_libraries(${name} PRIVATE tsms_fuzzed_options)
    tsms_read_once(${name} tsms_core_headers)
  endif()
  add_dependencies(tsms_generated ${name}_autogen)
endfunction()

# Fails the build when an include climbs.
file(GLOB_RECURSE TSMS_LAYERED_FILES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/src/*.h" "${CMAKE_SOURCE_DIR}/src/*.cpp")
add_custom_command(
  OUTPUT "${CMAKE_BINARY_DIR}/layers.stamp"
  COMMAND "${CMAKE_COMMAND}" -DSOURCE=${CMAKE_SOURCE_DIR}/src -P "${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake"
  COMMAND "${CMAKE_COMMAND}" -E touch "${CMAKE_BINARY_DIR}/layers.stamp"
  DEPENDS ${TSMS_LAYERED_FILES} "${CMAKE_SOURCE_DIR}/cmake/CheckLayers.cmake" "${CMAKE_SOURCE_DIR}/cmake/LayerTable.cmake"
  COMMENT "checking the layers" VERBATIM)
add_custom_target(tsms_layers ALL DEPENDS "${CMAKE_BINARY_DIR}/layers.stamp")
