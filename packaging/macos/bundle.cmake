# The bundle "Quorra Converter", with the engine in the folder of the executable, on a disk image.
set(icon "${CMAKE_CURRENT_LIST_DIR}/quorra-converter.icns")
target_sources(quorra-converter PRIVATE "${icon}")
set_source_files_properties("${icon}" TARGET_DIRECTORY quorra-converter PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(quorra-converter PROPERTIES
  MACOSX_BUNDLE ON
  OUTPUT_NAME "${bundle_name}"
  MACOSX_BUNDLE_INFO_PLIST "${bundle_description}")
install(TARGETS quorra-converter BUNDLE DESTINATION .)

if(TARGET Qtminw)
  set_target_properties(Qtminw PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${bundle_name}.app/Contents/MacOS")
  install(TARGETS Qtminw RUNTIME DESTINATION "${bundle_name}.app/Contents/MacOS")
  set_target_properties(Qtminw-ocr PROPERTIES
    LIBRARY_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/${bundle_name}.app/Contents/MacOS")
  install(TARGETS Qtminw-ocr LIBRARY DESTINATION "${bundle_name}.app/Contents/MacOS")
endif()

set(CPACK_GENERATOR DragNDrop)
