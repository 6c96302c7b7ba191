# Everything is built with the sanitizers or nothing is: they do not mix.
if(CORVANE_SANITIZE OR CORVANE_FUZZ)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                      -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
# The coverage that guides the fuzz target is of the program's code, so all of it is built for it.
if(CORVANE_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link)
endif()
