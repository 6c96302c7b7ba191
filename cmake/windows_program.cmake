# What a program with windows has in itself on Windows: no console of its own, the icon, the version,
# and the manifest, which says what the program does by itself (characters, scaled screens, long
# paths).
#
#     corvane_windows_program(corvane)
enable_language(RC)

function(corvane_windows_program name)
  set(folder ${PROJECT_SOURCE_DIR}/packaging/windows)
  set(made ${PROJECT_BINARY_DIR}/packaging/windows)
  # Four numbers, of which the project's version has two or more.
  string(REPLACE "." ";" numbers ${PROJECT_VERSION})
  list(APPEND numbers 0 0)
  list(SUBLIST numbers 0 4 numbers)
  list(JOIN numbers "," commas)
  list(JOIN numbers "." numbers)
  configure_file(${folder}/corvane.manifest.in ${made}/corvane.manifest @ONLY)
  configure_file(${folder}/corvane.rc.in ${made}/corvane.rc @ONLY)
  set_source_files_properties(${made}/corvane.rc PROPERTIES
      OBJECT_DEPENDS "${made}/corvane.manifest;${folder}/corvane.ico")
  target_sources(${name} PRIVATE ${made}/corvane.rc)
  set_target_properties(${name} PROPERTIES WIN32_EXECUTABLE ON)
  target_link_options(${name} PRIVATE -static -s)
endfunction()
