# Compiles and links the macOS program on another system, to prove that it builds. MACOS_SDK names a
# folder with the system's headers and link stubs: System/Library/Frameworks, usr/include, usr/lib.

set(CMAKE_SYSTEM_NAME Darwin)
set(MACOS_SDK "$ENV{MACOS_SDK}" CACHE PATH "The folder with macOS headers and link stubs")
set(MACOS_ARCHITECTURE "arm64" CACHE STRING "arm64 or x86_64")
list(APPEND CMAKE_TRY_COMPILE_PLATFORM_VARIABLES MACOS_SDK MACOS_ARCHITECTURE)
if(NOT IS_DIRECTORY "${MACOS_SDK}/System/Library/Frameworks")
    message(FATAL_ERROR "Set MACOS_SDK to a folder with System/Library/Frameworks, usr/include "
        "and usr/lib; docs/macos.md says how to lay it out")
endif()

set(CMAKE_SYSTEM_PROCESSOR "${MACOS_ARCHITECTURE}")
set(CMAKE_OSX_DEPLOYMENT_TARGET "13.3" CACHE STRING "" FORCE)
set(CMAKE_OSX_SYSROOT "${MACOS_SDK}" CACHE PATH "" FORCE)
set(CMAKE_OSX_ARCHITECTURES "${MACOS_ARCHITECTURE}" CACHE STRING "" FORCE)
foreach(language C CXX OBJC OBJCXX)
    set(CMAKE_${language}_COMPILER_TARGET "${MACOS_ARCHITECTURE}-apple-macos13.3")
endforeach()
find_program(CLANG clang-19 REQUIRED)
find_program(CLANGXX clang++-19 REQUIRED)
set(CMAKE_C_COMPILER "${CLANG}")
set(CMAKE_OBJC_COMPILER "${CLANG}")
set(CMAKE_CXX_COMPILER "${CLANGXX}")
set(CMAKE_OBJCXX_COMPILER "${CLANGXX}")
set(CMAKE_AR llvm-ar-19)
set(CMAKE_RANLIB llvm-ranlib-19)
set(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool-19)

# The folder has stubs of the frameworks and of the Objective-C runtime, but none of the C and C++
# libraries: their names are left to the loader. scripts/check-macos-cross tells the two apart.
set(CMAKE_EXE_LINKER_FLAGS_INIT
    "-fuse-ld=lld -nostdlib -Wl,-undefined,dynamic_lookup -lobjc")

if(NOT EXISTS "${MACOS_SDK}/System/Library/Frameworks/ServiceManagement.framework")
    set(CMAKE_OBJCXX_FLAGS_INIT "-iframework ${CMAKE_CURRENT_LIST_DIR}/macos-cross")
    string(APPEND CMAKE_EXE_LINKER_FLAGS_INIT " -F${CMAKE_CURRENT_LIST_DIR}/macos-cross")
endif()

set(CMAKE_FIND_ROOT_PATH "${MACOS_SDK}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
