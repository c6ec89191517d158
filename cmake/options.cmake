option(ORVEX_TESTS "Build the tests" ON)
option(ORVEX_BENCH "Build the benchmarks" OFF)
option(ORVEX_DISPLAY_TESTS "Test the display pages in a browser" OFF)
option(ORVEX_WINDOWS "Build what needs Qt: the report window and orvex-pdf" ON)
option(ORVEX_SANITIZE "Build with the address and undefined-behaviour sanitizers" OFF)
option(ORVEX_FUZZ "Build the fuzzers (clang)" OFF)
option(ORVEX_COVERAGE "Build with line coverage (gcc)" OFF)

if(NOT CMAKE_BUILD_TYPE)
  set(CMAKE_BUILD_TYPE Release)
endif()

find_program(CCACHE ccache)
if(CCACHE)
  set(CMAKE_CXX_COMPILER_LAUNCHER "${CCACHE}")
endif()

# Compiler settings of all our own code. -ffp-contract=off: the order of the arithmetic is part of a result.
add_library(orvex_options INTERFACE)
target_compile_options(orvex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Wold-style-cast
  -Wzero-as-null-pointer-constant
  -Woverloaded-virtual -Wimplicit-fallthrough -Werror -ffp-contract=off
  # GCC 12 warns of overlapping copies where texts are joined with +, in its own library.
  $<$<CXX_COMPILER_ID:GNU>:-Wno-restrict>)

if(ORVEX_SANITIZE)
  add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ORVEX_FUZZ)
  add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=address,undefined)
endif()
if(ORVEX_COVERAGE)
  add_compile_options(--coverage -O0)
  add_link_options(--coverage)
endif()
