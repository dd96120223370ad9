# quorra_add_test(NAME LABELS label... [SOURCES file...] [LIBRARIES target...] [TIMEOUT seconds]
#                 [ENVIRONMENT NAME=value...])
#
# Adds a test program (default source: NAME.cpp) and its CTest entry. Widgets are rendered offscreen unless the
# environment says otherwise. A program that exits with 77 is skipped.
function(quorra_add_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "LABELS;SOURCES;LIBRARIES;ENVIRONMENT" ${ARGN})
  if(NOT arg_SOURCES)
    set(arg_SOURCES ${name}.cpp)
  endif()
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 300)
  endif()
  add_executable(${name} ${arg_SOURCES})
  set_target_properties(${name} PROPERTIES AUTOMOC ON RUNTIME_OUTPUT_DIRECTORY "${CMAKE_BINARY_DIR}/tests")
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} Qt6::Test quorra_qt_strict)
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES
    LABELS "${arg_LABELS}"
    TIMEOUT ${arg_TIMEOUT}
    SKIP_RETURN_CODE 77
    ENVIRONMENT "QT_QPA_PLATFORM=offscreen;${arg_ENVIRONMENT}")
endfunction()

# quorra_add_script_test(NAME LABELS label... COMMAND program argument... [TIMEOUT seconds] [ENVIRONMENT NAME=value...])
#
# Adds a CTest entry for a script, with the same conventions.
function(quorra_add_script_test name)
  cmake_parse_arguments(arg "" "TIMEOUT" "LABELS;COMMAND;ENVIRONMENT" ${ARGN})
  if(NOT arg_TIMEOUT)
    set(arg_TIMEOUT 600)
  endif()
  add_test(NAME ${name} COMMAND ${arg_COMMAND})
  set_tests_properties(${name} PROPERTIES
    LABELS "${arg_LABELS}"
    TIMEOUT ${arg_TIMEOUT}
    SKIP_RETURN_CODE 77
    ENVIRONMENT "${arg_ENVIRONMENT}")
endfunction()
