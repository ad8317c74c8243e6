# cmake -DBUILD=<build folder> -DPREFIX=<scratch folder> -DFILES=<list> -P CheckInstalledFiles.cmake
# Installs the build into PREFIX, which is emptied, and fails unless FILES and nothing else are there.
cmake_minimum_required(VERSION 3.25)
file(REMOVE_RECURSE "${PREFIX}")
execute_process(COMMAND "${CMAKE_COMMAND}" --install "${BUILD}" --prefix "${PREFIX}"
  OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
file(GLOB_RECURSE found RELATIVE "${PREFIX}" "${PREFIX}/*")
set(missing ${FILES})
list(REMOVE_ITEM missing ${found})
list(REMOVE_ITEM found ${FILES})
if(missing OR found)
  message(FATAL_ERROR "missing: ${missing}\nnot expected: ${found}")
endif()
