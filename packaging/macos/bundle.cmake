# The bundle "Quorra Converter" with its engine beside the executable, on a disk image to drag it from.
set(icon "${CMAKE_CURRENT_LIST_DIR}/quorra-converter.icns")
target_sources(quorra-converter PRIVATE "${icon}")
set_source_files_properties("${icon}" TARGET_DIRECTORY quorra-converter PROPERTIES MACOSX_PACKAGE_LOCATION Resources)
set_target_properties(quorra-converter PROPERTIES
  MACOSX_BUNDLE ON
  OUTPUT_NAME "Quorra Converter"
  MACOSX_BUNDLE_INFO_PLIST "${CMAKE_CURRENT_LIST_DIR}/Info.plist.in"
  MACOSX_BUNDLE_BUNDLE_NAME "Quorra Converter"
  MACOSX_BUNDLE_EXECUTABLE_NAME "Quorra Converter"
  MACOSX_BUNDLE_GUI_IDENTIFIER example.marbeck.QuorraConverter
  MACOSX_BUNDLE_ICON_FILE quorra-converter.icns
  MACOSX_BUNDLE_SHORT_VERSION_STRING "${PROJECT_VERSION}"
  MACOSX_BUNDLE_BUNDLE_VERSION "${PROJECT_VERSION}"
  MACOSX_BUNDLE_COPYRIGHT "Copyright (C) 2026 Marbeck")
install(TARGETS quorra-converter BUNDLE DESTINATION .)

if(TARGET Qtminw)
  set_target_properties(Qtminw PROPERTIES
    RUNTIME_OUTPUT_DIRECTORY "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/Quorra Converter.app/Contents/MacOS")
  install(TARGETS Qtminw RUNTIME DESTINATION "Quorra Converter.app/Contents/MacOS")
endif()

set(CPACK_GENERATOR DragNDrop)
