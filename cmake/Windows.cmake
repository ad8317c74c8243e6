# Toolchain: a Windows of 64 bits by mingw-w64, whose `posix` flavour has the threads of the standard library.
# TSMS_WINDOWS_PREFIXES lists the folders of the libraries that were built for it (scripts/windows).
set(CMAKE_SYSTEM_NAME Windows)
set(CMAKE_SYSTEM_PROCESSOR x86_64)
set(CMAKE_C_COMPILER x86_64-w64-mingw32-gcc-posix)
set(CMAKE_CXX_COMPILER x86_64-w64-mingw32-g++-posix)
set(CMAKE_RC_COMPILER x86_64-w64-mingw32-windres)
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES TSMS_WINDOWS_PREFIXES)
set(CMAKE_FIND_ROOT_PATH ${TSMS_WINDOWS_PREFIXES} /usr/x86_64-w64-mingw32)
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)
# Qt's own tools are those of this machine.
set(QT_HOST_PATH /usr CACHE PATH "")
file(GLOB host_info /usr/lib/*/cmake/Qt6HostInfo)
get_filename_component(host_packages "${host_info}" DIRECTORY)
set(QT_HOST_PATH_CMAKE_DIR "${host_packages}" CACHE PATH "")
