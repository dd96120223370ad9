# The engine and the settings are in the folder of the program's executable, so the executables are at the top of a
# separate folder instead of in bin/.
if(CMAKE_INSTALL_PREFIX_INITIALIZED_TO_DEFAULT)
  set_property(CACHE CMAKE_INSTALL_PREFIX PROPERTY VALUE /opt/quorra-converter)
endif()

set(linux "${CMAKE_CURRENT_LIST_DIR}")
install(TARGETS quorra-converter RUNTIME DESTINATION .)
if(TARGET Qtminw)
  install(TARGETS Qtminw RUNTIME DESTINATION .)
  install(TARGETS Qtminw-ocr LIBRARY DESTINATION . PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
endif()
if(TARGET Qtminw AND NOT QUORRA_SANITIZE)
  # Manual pages: the options are those that the engine prints.
  find_package(Python3 REQUIRED COMPONENTS Interpreter)
  set(pages "")
  foreach(page Qtminw.1 quorra-converter.1)
    set(template "${linux}/manual/${page}.in")
    set(made "${CMAKE_CURRENT_BINARY_DIR}/manual/${page}")
    add_custom_command(OUTPUT "${made}"
      COMMAND "${CMAKE_COMMAND}" -E make_directory "${CMAKE_CURRENT_BINARY_DIR}/manual"
      COMMAND Python3::Interpreter "${linux}/manual/make-manual" "$<TARGET_FILE:Qtminw>" "${PROJECT_VERSION}"
        "${template}" "${made}"
      DEPENDS Qtminw "${template}" "${linux}/manual/make-manual"
      VERBATIM)
    list(APPEND pages "${made}")
  endforeach()
  add_custom_target(manual ALL DEPENDS ${pages})
  install(FILES ${pages} DESTINATION share/man/man1)
  install(FILES "${linux}/completions/Qtminw" DESTINATION share/bash-completion/completions)
endif()
install(FILES "${PROJECT_SOURCE_DIR}/README.md" "${PROJECT_SOURCE_DIR}/CHANGELOG.md" "${PROJECT_SOURCE_DIR}/LICENSE"
  DESTINATION . OPTIONAL)
install(PROGRAMS "${linux}/add-to-menu" DESTINATION .)

# What the engine opens or starts by name: the tables of Asian character sets, fonts for documents without embedded
# fonts, the office suite that writes Word, Excel and PowerPoint files, and the data for reading English text in scanned
# pages. Data for other languages and for rotated pages are suggestions.
set(CPACK_DEBIAN_PACKAGE_DEPENDS "poppler-data, fonts-liberation, fonts-dejavu-core, \
libreoffice-writer-nogui | libreoffice-writer, libreoffice-calc-nogui | libreoffice-calc, \
libreoffice-impress-nogui | libreoffice-impress, tesseract-ocr-eng")
if(TARGET Qtminw)
  set(dependencies "${CMAKE_CURRENT_BINARY_DIR}/DEPENDENCIES")
  install(CODE "execute_process(COMMAND_ERROR_IS_FATAL ANY COMMAND \"${linux}/list-dependencies\" \"${dependencies}\"
    \"${CPACK_DEBIAN_PACKAGE_DEPENDS}\"
    \"$<TARGET_FILE:quorra-converter>\" \"$<TARGET_FILE:Qtminw>\" \"$<TARGET_FILE:Qtminw-ocr>\")")
  install(FILES "${dependencies}" DESTINATION . OPTIONAL)
endif()
install(FILES "${linux}/quorra-converter.desktop" DESTINATION share/applications)
install(FILES "${linux}/${QUORRA_APPLICATION_ID}.metainfo.xml" DESTINATION share/metainfo)
install(DIRECTORY "${linux}/icons/" DESTINATION share/icons/hicolor)
install(FILES "${PROJECT_SOURCE_DIR}/resources/artwork/main.svg"
  DESTINATION share/icons/hicolor/scalable/apps RENAME quorra-converter.svg)

set(CPACK_GENERATOR TGZ DEB)
set(CPACK_PROJECT_CONFIG_FILE "${linux}/cpack_project.cmake")
set(CPACK_DEBIAN_FILE_NAME DEB-DEFAULT)
set(CPACK_DEBIAN_PACKAGE_RELEASE 1)
set(CPACK_DEBIAN_PACKAGE_SECTION text)
set(CPACK_DEBIAN_PACKAGE_HOMEPAGE "${PROJECT_HOMEPAGE_URL}")
set(CPACK_DEBIAN_PACKAGE_SHLIBDEPS ON) # besides CPACK_DEBIAN_PACKAGE_DEPENDS
set(CPACK_DEBIAN_PACKAGE_RECOMMENDS "qt6-wayland, xdg-utils, fonts-wqy-zenhei")
set(CPACK_DEBIAN_PACKAGE_SUGGESTS "tesseract-ocr-osd, tesseract-ocr-all")
set(CPACK_DEBIAN_PACKAGE_CONTROL_EXTRA "${linux}/postrm")
set(CPACK_DEBIAN_PACKAGE_CONTROL_STRICT_PERMISSION ON)
