# Warnings that all of the project's own code builds without.
add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    $<$<BOOL:${CORVANE_WERROR}>:-Werror>)
