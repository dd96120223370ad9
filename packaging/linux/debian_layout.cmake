# Runs between installation to the staging folder and packaging: moves desktop files to /usr and removes what is only
# needed in the portable folder.
set(root "${CPACK_TEMPORARY_DIRECTORY}")
set(program "${root}/opt/quorra-converter")

file(MAKE_DIRECTORY "${root}/usr/bin" "${root}/usr/share/doc/quorra-converter")
file(CREATE_LINK /opt/quorra-converter/quorra-converter "${root}/usr/bin/quorra-converter" SYMBOLIC)
file(CREATE_LINK /opt/quorra-converter/Qtminw "${root}/usr/bin/Qtminw" SYMBOLIC)
foreach(folder applications metainfo icons man bash-completion)
  file(RENAME "${program}/share/${folder}" "${root}/usr/share/${folder}")
endforeach()
file(GLOB pages "${root}/usr/share/man/man1/*.1")
execute_process(COMMAND gzip -9n ${pages} COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE "${program}/share")
file(REMOVE "${program}/add-to-menu" "${program}/DEPENDENCIES" "${program}/LICENSE")
foreach(document README.md CHANGELOG.md)
  if(EXISTS "${program}/${document}")
    file(RENAME "${program}/${document}" "${root}/usr/share/doc/quorra-converter/${document}")
  endif()
endforeach()
file(COPY "${CMAKE_CURRENT_LIST_DIR}/copyright" DESTINATION "${root}/usr/share/doc/quorra-converter"
  FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
