# SPDX-License-Identifier: Apache-2.0
# What a build can be asked for, and what every target of the project is compiled with.
option(BUILD_SHARED_LIBS "Build libvorpel as a shared library" ON)
option(VORPEL_BUILD_TESTS "Build the tests" ON)
option(VORPEL_BUILD_DATA "Build the dictionaries and the key geometry" OFF)
option(VORPEL_BUILD_BENCHMARKS "Build the programs that measure, and what they read" OFF)
option(VORPEL_FUZZ "Instrument for libFuzzer (clang only)" OFF)
set(VORPEL_SANITIZE "" CACHE STRING "Sanitizers to build with, as -fsanitize= takes them")
# One folder for every preset: the sanitized tests read what the release build made.
set(VORPEL_DATA_DIR ${PROJECT_SOURCE_DIR}/build/data CACHE PATH "Where dictionaries and geometry lie")
set(VORPEL_EVAL_DIR ${PROJECT_SOURCE_DIR}/../shared/eval CACHE PATH
    "Evaluation sets; what they name is kept out of the dictionaries")
mark_as_advanced(VORPEL_DATA_DIR VORPEL_EVAL_DIR)

# The C interface is C99, and so are the programs that test it.
set(CMAKE_C_STANDARD 99)
set(CMAKE_C_STANDARD_REQUIRED ON)
set(CMAKE_C_EXTENSIONS OFF)
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)
set(CMAKE_C_VISIBILITY_PRESET hidden)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)

find_program(VORPEL_CCACHE ccache)
if(VORPEL_CCACHE)
  set(CMAKE_C_COMPILER_LAUNCHER ${VORPEL_CCACHE})
  set(CMAKE_CXX_COMPILER_LAUNCHER ${VORPEL_CCACHE})
endif()

add_compile_options(-Wall -Wextra -Wpedantic -Wshadow -Wimplicit-fallthrough -Wundef -Werror
                    $<$<COMPILE_LANGUAGE:CXX>:-Wnon-virtual-dtor> $<$<COMPILE_LANGUAGE:CXX>:-Woverloaded-virtual>)
# g++ 12 sees overlaps in "literal" + std::string that are not there once it optimises.
if(CMAKE_CXX_COMPILER_ID STREQUAL GNU AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  add_compile_options($<$<NOT:$<CONFIG:Debug>>:-Wno-restrict>)
endif()
# Costs and scores are single floats, one rounding an operation, on every processor.
add_compile_options(-ffp-contract=off)

if(VORPEL_FUZZ)
  if(NOT CMAKE_CXX_COMPILER_ID MATCHES "Clang")
    message(FATAL_ERROR "VORPEL_FUZZ needs clang++: use the preset fuzz")
  endif()
  add_compile_options(-fsanitize=fuzzer-no-link)
  # Casts of numbers that do not fit are undefined too, and not in the group.
  set(VORPEL_SANITIZE address,undefined,float-cast-overflow)
endif()
if(VORPEL_SANITIZE)
  add_compile_options(-fsanitize=${VORPEL_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  add_link_options(-fsanitize=${VORPEL_SANITIZE})
endif()
