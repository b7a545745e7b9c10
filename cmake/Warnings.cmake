# Warnings for the project's own code only. They are errors in the presets for working on it
# (CMAKE_COMPILE_WARNING_AS_ERROR): whoever only builds it may have a newer compiler.

include(CheckCXXCompilerFlag)

add_library(corvane_warnings INTERFACE)
target_compile_options(corvane_warnings INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor
    -Wold-style-cast -Woverloaded-virtual -Wdouble-promotion)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(corvane_warnings INTERFACE
        # Designated initialisers leave the rest at its defaults on purpose.
        -Wno-missing-field-initializers
        # GCC 12 sees overlaps in optimised string concatenation that are not there.
        -Wno-restrict
        -Wduplicated-cond -Wlogical-op -Wuseless-cast)
else()
    # A compiler that does not know this warning does not give it either, and refuses its name.
    check_cxx_compiler_flag(-Wmissing-designated-field-initializers
        CORVANE_WARNS_OF_MISSING_DESIGNATED_FIELDS)
    if(CORVANE_WARNS_OF_MISSING_DESIGNATED_FIELDS)
        target_compile_options(corvane_warnings
            INTERFACE -Wno-missing-designated-field-initializers)
    endif()
endif()
