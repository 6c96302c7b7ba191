# Installs a build into an empty folder, checks what is there then, and starts it from there.
#
#     cmake -DBUILD=FOLDER -DPREFIX=FOLDER -DSTART=SCRIPT -P check_install.cmake

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE installed RELATIVE ${PREFIX} ${PREFIX}/*)
list(SORT installed)
set(guide ${installed})
list(FILTER guide INCLUDE REGEX "^share/corvane/guide/")
list(FILTER installed EXCLUDE REGEX "^share/corvane/guide/")
set(icons)
foreach(size IN ITEMS 128x128 16x16 22x22 24x24 256x256 32x32 48x48 512x512 64x64)
  list(APPEND icons share/icons/hicolor/${size}/apps/corvane.png)
endforeach()
set(expected
    bin/corvane
    share/applications/corvane.desktop
    ${icons}
    share/icons/hicolor/scalable/apps/corvane.svg
    share/man/man1/corvane.1.gz
    share/metainfo/org.corvane.corvane.metainfo.xml
    share/mime/packages/corvane.xml)
if(NOT "${installed}" STREQUAL "${expected}")
  message(FATAL_ERROR "Installed is ${installed}\nexpected was ${expected}")
endif()

# The guide, where it is built: its pages and pictures, and nothing else.
if(EXISTS ${BUILD}/docs/guide/index.html)
  foreach(page IN ITEMS index.html decimal-separator.html guide.css pictures/chest.png)
    if(NOT share/corvane/guide/${page} IN_LIST guide)
      message(FATAL_ERROR "The guide lacks ${page}")
    endif()
  endforeach()
  set(others ${guide})
  list(FILTER others EXCLUDE REGEX "\\.(html|css|png)$")
  if(others)
    message(FATAL_ERROR "The guide has ${others}")
  endif()
endif()

# The desktop entry starts the program with the file that was chosen, and shows the icon that was
# installed beside it.
file(STRINGS ${PREFIX}/share/applications/corvane.desktop entry)
foreach(line IN ITEMS "[Desktop Entry]" "Type=Application" "Exec=corvane %f" "Icon=corvane")
  if(NOT line IN_LIST entry)
    message(FATAL_ERROR "The desktop entry lacks the line ${line}")
  endif()
endforeach()

file(STRINGS ${PREFIX}/share/applications/corvane.desktop types
    REGEX "^MimeType=model/x-warcraft3-mdl;$")
if(NOT types)
  message(FATAL_ERROR "The desktop entry does not open models")
endif()

execute_process(COMMAND ${START} ${PREFIX}/bin/corvane COMMAND_ERROR_IS_FATAL ANY)
file(REMOVE_RECURSE ${PREFIX})
