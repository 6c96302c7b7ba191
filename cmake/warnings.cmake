# Warnings that all of the project's own code builds without.
add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wconversion -Wshadow
    # GCC 12 sees overlaps in std::string that are not there (its bug 105329).
    $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>
    $<$<BOOL:${CORVANE_WERROR}>:-Werror>)
