# Warnings are errors, for the project's own code only.

add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Wdouble-promotion -Werror)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(corvane_warnings INTERFACE
        # Designated initialisers leave the rest at its defaults on purpose.
        -Wno-missing-field-initializers
        # GCC 12 sees overlaps in optimised string concatenation that are not there.
        -Wno-restrict
        -Wduplicated-cond -Wlogical-op -Wuseless-cast)
else()
    target_compile_options(corvane_warnings INTERFACE -Wno-missing-designated-field-initializers)
endif()
