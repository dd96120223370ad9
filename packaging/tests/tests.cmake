# Tests the contents of the packages and that they work: the program is unpacked or installed, started as an ordinary
# user on a virtual desktop, and converts a file. Not with sanitizers, whose libraries are specific to this machine.
find_package(Python3 REQUIRED COMPONENTS Interpreter)
set(tests "${CMAKE_CURRENT_LIST_DIR}")
set(packages "${CMAKE_BINARY_DIR}/packages")
set(environment
  "PYTHONDONTWRITEBYTECODE=1"
  "PYTHONPATH=${PROJECT_SOURCE_DIR}/tests/desktop"
  "QUORRA_SOURCE=${PROJECT_SOURCE_DIR}"
  "QUORRA_VERSION=${PROJECT_VERSION}"
  "QUORRA_OLDEST_MACOS=${CMAKE_OSX_DEPLOYMENT_TARGET}"
  "QUORRA_BUNDLE_DESCRIPTION=${bundle_description}"
  "QUORRA_BUILD=${CMAKE_BINARY_DIR}"
  "QUORRA_CMAKE=${CMAKE_COMMAND}"
  "QUORRA_PACKAGES=${packages}")

quorra_add_script_test(packaging_desktop_entry LABELS packaging
  COMMAND desktop-file-validate "${PROJECT_SOURCE_DIR}/packaging/linux/quorra-converter.desktop")
quorra_add_script_test(packaging_metainfo LABELS packaging
  COMMAND appstreamcli validate --no-net
    "${PROJECT_SOURCE_DIR}/packaging/linux/${QUORRA_APPLICATION_ID}.metainfo.xml")
quorra_add_script_test(packaging_files LABELS packaging
  COMMAND Python3::Interpreter "${tests}/test_files.py" -v
  ENVIRONMENT ${environment})

if(TARGET Qtminw AND NOT QUORRA_SANITIZE)
  quorra_add_script_test(packaging_manual LABELS packaging
    COMMAND Python3::Interpreter "${tests}/test_manual.py" -v
    ENVIRONMENT ${environment} "QUORRA_ENGINE=$<TARGET_FILE:Qtminw>" "QUORRA_MANUAL=${CMAKE_CURRENT_BINARY_DIR}/manual")
  quorra_add_script_test(packaging_pack LABELS packaging
    COMMAND "${CMAKE_CPACK_COMMAND}" --config "${CMAKE_BINARY_DIR}/CPackConfig.cmake" -B "${packages}")
  set_tests_properties(packaging_pack PROPERTIES FIXTURES_SETUP quorra_packages)
  foreach(package portable debian)
    quorra_add_script_test(packaging_${package} LABELS packaging
      COMMAND Python3::Interpreter "${tests}/test_${package}.py" -v
      ENVIRONMENT ${environment})
    set_tests_properties(packaging_${package} PROPERTIES FIXTURES_REQUIRED quorra_packages)
  endforeach()
endif()
