# Compiler settings as two interface targets: `quorra_warnings` for all targets, `quorra_qt_strict` for those that use
# Qt.

add_library(quorra_warnings INTERFACE)
target_compile_options(quorra_warnings INTERFACE -Wall -Wextra -Wpedantic $<$<BOOL:${QUORRA_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND
    (QUORRA_SANITIZE OR QUORRA_SANITIZE_THREADS OR CMAKE_CXX_COMPILER_VERSION VERSION_GREATER_EQUAL 13))
  # With the checks added by a sanitizer, GCC does not see that a member of a variant is initialised, and later versions
  # do not see it of the value of an optional, so this warning has false positives. It is enabled in other builds.
  target_compile_options(quorra_warnings INTERFACE -Wno-maybe-uninitialized)
endif()

add_library(quorra_qt_strict INTERFACE)
target_link_libraries(quorra_qt_strict INTERFACE quorra_warnings)
target_compile_definitions(quorra_qt_strict INTERFACE
  QT_NO_CAST_FROM_ASCII
  QT_NO_CAST_TO_ASCII
  QT_NO_URL_CAST_FROM_STRING
  QT_NO_CONTEXTLESS_CONNECT
  QT_NO_FOREACH
  QT_NO_KEYWORDS
  QT_DISABLE_DEPRECATED_BEFORE=0x060400)

if(QUORRA_SANITIZE)
  # -fno-sanitize=vptr: the system's PDF library has no run-time type information for its private classes.
  add_compile_options(-fsanitize=address,undefined -fno-sanitize=vptr -fno-sanitize-recover=undefined
    -fno-omit-frame-pointer -g1)
  add_link_options(-fsanitize=address,undefined)
  add_compile_definitions(QUORRA_SANITIZED)
endif()

if(QUORRA_SANITIZE_THREADS)
  if(QUORRA_SANITIZE)
    message(FATAL_ERROR "QUORRA_SANITIZE and QUORRA_SANITIZE_THREADS exclude each other")
  endif()
  add_compile_options(-fsanitize=thread -fno-omit-frame-pointer -g1)
  add_link_options(-fsanitize=thread)
  add_compile_definitions(QUORRA_SANITIZED)
endif()

if(QUORRA_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES Clang)
    message(FATAL_ERROR "QUORRA_FUZZ needs clang++")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()

if(QUORRA_COVERAGE)
  # Atomic, because several threads of the engine count at the same time.
  add_compile_options(--coverage -fprofile-update=atomic -O0 -g1)
  add_link_options(--coverage)
endif()
