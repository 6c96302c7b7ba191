# What belongs to the Debian package alone, put into the folder that it is made of: texts in the
# places and forms that its policy names.
set(staged ${CPACK_TEMPORARY_INSTALL_DIRECTORY}/usr/share)
set(documents ${staged}/doc/corvane)
file(MAKE_DIRECTORY ${documents})

# zipped SOURCE NAME: the same bytes every time.
function(zipped source name)
  execute_process(COMMAND gzip -9nc ${source} OUTPUT_FILE ${documents}/${name}
      COMMAND_ERROR_IS_FATAL ANY)
endfunction()
zipped(${CPACK_CORVANE_STAGED_TEXTS}/changelog changelog.Debian.gz)
zipped(${CPACK_CORVANE_STAGED_TEXTS}/CHANGELOG.md changelog.gz)
file(COPY ${CPACK_CORVANE_STAGED_TEXTS}/copyright DESTINATION ${documents}
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(COPY ${CPACK_CORVANE_STAGED_TEXTS}/lintian-overrides DESTINATION ${staged}/lintian/overrides
    FILE_PERMISSIONS OWNER_READ OWNER_WRITE GROUP_READ WORLD_READ)
file(RENAME ${staged}/lintian/overrides/lintian-overrides ${staged}/lintian/overrides/corvane)
# The guide is read by the program, so it lies elsewhere.
file(CREATE_LINK ../../corvane/guide ${documents}/guide SYMBOLIC)
