# quorra_engine_room(NAME FOLDER folder SOURCES file... [SEES room...] [LIBRARIES target...])
#
# Adds the static library engine_NAME. Its public headers are in include/NAME/; all other headers in the folder are
# private. A room can include the public headers of the rooms listed after SEES, and of those that they see in turn; any
# other include fails to compile. LIBRARIES are linked to this room only.
function(quorra_engine_room name)
  cmake_parse_arguments(arg "" "" "SOURCES;SEES;LIBRARIES" ${ARGN})
  add_library(engine_${name} STATIC ${arg_SOURCES})
  target_include_directories(engine_${name}
    PUBLIC "${CMAKE_CURRENT_SOURCE_DIR}/include"
    PRIVATE "${CMAKE_CURRENT_SOURCE_DIR}")
  list(TRANSFORM arg_SEES PREPEND engine_)
  target_link_libraries(engine_${name} PUBLIC ${arg_SEES} Qt6::Core PRIVATE ${arg_LIBRARIES} quorra_qt_strict)
  set_property(GLOBAL APPEND PROPERTY QUORRA_ENGINE_ROOMS engine_${name})
endfunction()
