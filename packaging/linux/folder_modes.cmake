# Folders are created with the umask of the user who builds the package, on which the package must not depend.
file(GLOB_RECURSE entries LIST_DIRECTORIES true "${CPACK_TEMPORARY_DIRECTORY}/*")
foreach(entry "${CPACK_TEMPORARY_DIRECTORY}" ${entries})
  if(IS_DIRECTORY "${entry}" AND NOT IS_SYMLINK "${entry}")
    file(CHMOD "${entry}" PERMISSIONS
      OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE WORLD_READ WORLD_EXECUTE)
  endif()
endforeach()
