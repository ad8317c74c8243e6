# For every target of the project and for nothing else. In CI warnings are errors (CMAKE_COMPILE_WARNING_AS_ERROR).
add_library(tsms_options INTERFACE)
if(MSVC)
  target_compile_options(tsms_options INTERFACE /W4 /utf-8 /permissive-)
else()
  target_compile_options(tsms_options INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Woverloaded-virtual
    -Wimplicit-fallthrough)
endif()
if(TSMS_UNITY AND CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # Here every source is a header to the compiler, which then warns of classes that hold something anonymous.
  target_compile_options(tsms_options INTERFACE -Wno-subobject-linkage)
endif()
target_compile_definitions(tsms_options INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_KEYWORDS QT_NO_FOREACH
  $<$<PLATFORM_ID:Windows>:WIN32_LEAN_AND_MEAN>) # its old sockets would come before the new ones
# For what can be fuzzed, that is without a window: what the fuzzers steer by.
add_library(tsms_fuzzed_options INTERFACE)
target_link_libraries(tsms_fuzzed_options INTERFACE tsms_options)
if(TSMS_FUZZERS)
  target_compile_options(tsms_fuzzed_options INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(TSMS_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
