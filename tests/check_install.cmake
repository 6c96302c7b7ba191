# Installs a build into an empty folder and checks what is there then.
#
#     cmake -DBUILD=FOLDER -DPREFIX=FOLDER -P check_install.cmake

cmake_minimum_required(VERSION 3.25)

file(REMOVE_RECURSE ${PREFIX})
execute_process(COMMAND ${CMAKE_COMMAND} --install ${BUILD} --prefix ${PREFIX}
    OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)

file(GLOB_RECURSE installed RELATIVE ${PREFIX} ${PREFIX}/*)
list(SORT installed)
set(expected
    bin/corvane
    share/applications/corvane.desktop
    share/icons/hicolor/scalable/apps/corvane.svg)
if(NOT "${installed}" STREQUAL "${expected}")
  message(FATAL_ERROR "Installed is ${installed}\nexpected was ${expected}")
endif()

# The desktop entry starts the program and shows the icon that were installed beside it.
file(STRINGS ${PREFIX}/share/applications/corvane.desktop entry)
foreach(line IN ITEMS "[Desktop Entry]" "Type=Application" "Exec=corvane" "Icon=corvane")
  if(NOT line IN_LIST entry)
    message(FATAL_ERROR "The desktop entry lacks the line ${line}")
  endif()
endforeach()
file(REMOVE_RECURSE ${PREFIX})
