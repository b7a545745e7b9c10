# What a packager may set. Every default is neutral.

set(CORVANE_BUILD_NUMBER "1" CACHE STRING "The build number shown behind the version")
set(CORVANE_WEB_PAGE "https://corvane.example/" CACHE STRING "The product's web page")
set(CORVANE_HOST_NAME "corvane.example" CACHE STRING "The host name shown for the web page")
set(CORVANE_DONATION_PAGE "https://corvane.example/donate" CACHE STRING "The donation page")
set(CORVANE_MAKER_PAGE "https://corvane.example/authors" CACHE STRING "The maker's web site")
set(CORVANE_CREDIT "Made by the Corvane authors" CACHE STRING "The credit line")
set(CORVANE_MAINTAINER "The Corvane authors <authors@corvane.example>" CACHE STRING
    "Who looks after the Debian package")
set(CORVANE_BUNDLE_IDENTIFIER "example.corvane.Corvane" CACHE STRING
    "The identifier of the macOS application bundle")
set(CORVANE_SIGNING_IDENTITY "-" CACHE STRING
    "The identity that signs the macOS application bundle; - for an ad-hoc signature")

option(CORVANE_TESTS "Build the tests" ON)
option(CORVANE_FUZZERS "Build the fuzzers, which needs clang" OFF)
option(CORVANE_BENCH "Build what measures the program; needs the tests' desktop" OFF)
set(CORVANE_SANITIZE "" CACHE STRING "Sanitizers to build with: address, thread or none")

set(CMAKE_CXX_STANDARD 23)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
