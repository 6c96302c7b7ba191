# A library of the program: one folder, with what it may use named in its link line.
#
#     corvane_library(corvane_views FOLDER views USES corvane_base)
#
# The library is made of all sources in src/FOLDER, not of those in folders below it; of those for
# one kind of system, NAME_posix.cpp and NAME_windows.cpp, the one for the system it is built for. Only its own
# headers and those of what it uses are found, as "FOLDER/header.h": every library has an include
# folder of its own in the build tree with nothing but links to its headers.
function(corvane_library name)
  cmake_parse_arguments(arg "" "FOLDER" "USES" ${ARGN})
  set(folder ${PROJECT_SOURCE_DIR}/src/${arg_FOLDER})
  file(GLOB sources CONFIGURE_DEPENDS ${folder}/*.cpp)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")  # a program's
  if(WIN32)
    list(FILTER sources EXCLUDE REGEX "_posix\\.cpp$")
  else()
    list(FILTER sources EXCLUDE REGEX "_windows\\.cpp$")
  endif()
  file(GLOB headers CONFIGURE_DEPENDS ${folder}/*.h)
  set(root ${PROJECT_BINARY_DIR}/include/${name})
  file(REMOVE_RECURSE ${root})
  file(MAKE_DIRECTORY ${root}/${arg_FOLDER})
  foreach(header IN LISTS headers)
    get_filename_component(file ${header} NAME)
    file(CREATE_LINK ${header} ${root}/${arg_FOLDER}/${file} SYMBOLIC)
  endforeach()
  if(sources)
    add_library(${name} STATIC ${sources})
    set(scope PUBLIC)
    target_link_libraries(${name} PRIVATE corvane_warnings)
  else()
    add_library(${name} INTERFACE)
    set(scope INTERFACE)
  endif()
  target_include_directories(${name} ${scope} ${root})
  target_link_libraries(${name} ${scope} ${arg_USES})
endfunction()
