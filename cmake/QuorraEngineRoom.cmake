# quorra_engine_room(NAME FOLDER folder SOURCES file... [SEES room...] [LIBRARIES target...])
#
# Adds the static library engine_NAME. What other rooms may include lies in FOLDER/include/FOLDER's name; everything else
# in the folder is the room's own. A room sees the public headers of the rooms that it names with SEES, and of the rooms
# that those see: an include of any other room does not compile. LIBRARIES are for this room alone.
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
