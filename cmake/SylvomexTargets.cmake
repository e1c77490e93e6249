# SPDX-License-Identifier: MIT
# What every target of the system shares.

add_library(sylvomex_options INTERFACE)
target_compile_options(sylvomex_options INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror
  -ffp-contract=off -fno-math-errno)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 warns of overlaps in inlined std::string concatenation that are none (PR 105329).
  target_compile_options(sylvomex_options INTERFACE -Wno-restrict)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  # SSE4.1 for floor and rounding in the lookups; wider units are dispatched at run time.
  target_compile_options(sylvomex_options INTERFACE -march=x86-64-v2)
endif()
if(SYLVOMEX_SANITIZE)
  target_compile_options(sylvomex_options INTERFACE
    -fsanitize=${SYLVOMEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(sylvomex_options INTERFACE -fsanitize=${SYLVOMEX_SANITIZE})
endif()

# sylvomex_library(<name> <dependency>...): a static library of the sources of the present
# folder (not of its sub-folders), seen as "folder/header.h" from src/.
function(sylvomex_library name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE sylvomex_options)
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
endfunction()

# sylvomex_test(<name> <dependency>...): one test program of the sources of the present folder.
function(sylvomex_test name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest_main sylvomex_options)
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST)
endfunction()
