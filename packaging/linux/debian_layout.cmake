# Runs between installation to the staging folder and packaging: moves desktop files to /usr and removes what is only
# needed in the portable folder.
set(root "${CPACK_TEMPORARY_DIRECTORY}")
set(program "${root}/opt/quorra-converter")

file(MAKE_DIRECTORY "${root}/usr/bin" "${root}/usr/share/doc/quorra-converter")
file(CREATE_LINK /opt/quorra-converter/quorra-converter "${root}/usr/bin/quorra-converter" SYMBOLIC)
foreach(folder applications metainfo icons)
  file(RENAME "${program}/share/${folder}" "${root}/usr/share/${folder}")
endforeach()
file(REMOVE_RECURSE "${program}/share")
file(REMOVE "${program}/add-to-menu" "${program}/LICENSE")
foreach(document README.md CHANGELOG.md)
  if(EXISTS "${program}/${document}")
    file(RENAME "${program}/${document}" "${root}/usr/share/doc/quorra-converter/${document}")
  endif()
endforeach()
file(COPY "${CMAKE_CURRENT_LIST_DIR}/copyright" DESTINATION "${root}/usr/share/doc/quorra-converter"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
