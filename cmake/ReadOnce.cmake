# Most of a source's reading goes into the headers of Qt and of the tests. Where the sources of a target are compiled as
# one, these are read once for all targets.

# tsms_headers(<name> LINK <targets> HEADERS <headers>): a target that reads these headers for others, with the flags
# that LINK brings.
function(tsms_headers name)
  if(TSMS_UNITY)
    cmake_parse_arguments(ARG "" "" "LINK;HEADERS" ${ARGN})
    file(CONFIGURE OUTPUT ${name}.cpp CONTENT "")
    add_library(${name} OBJECT "${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp")
    target_link_libraries(${name} PRIVATE ${ARG_LINK})
    target_precompile_headers(${name} PRIVATE ${ARG_HEADERS})
  endif()
endfunction()

# tsms_read_once(<target> <name>): the target is compiled with the same flags, and takes the headers from there.
function(tsms_read_once target name)
  if(TSMS_UNITY)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endif()
endfunction()
