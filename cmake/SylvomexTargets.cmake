# SPDX-License-Identifier: MIT
# What every target of the system shares.

add_library(sylvomex_flags INTERFACE)
target_compile_options(sylvomex_flags INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wnon-virtual-dtor -Wold-style-cast -Werror
  -ffp-contract=off -fno-math-errno)
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
  # g++ 12 warns of overlaps and overruns in inlined std::string code that are none (PR 105329,
  # PR 105651), more often with precompiled headers; the sanitizers watch for real ones.
  target_compile_options(sylvomex_flags INTERFACE
    -Wno-restrict -Wno-stringop-overflow -Wno-array-bounds)
endif()
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|AMD64")
  # SSE4.1 for floor and rounding in the lookups; wider units are dispatched at run time.
  target_compile_options(sylvomex_flags INTERFACE -march=x86-64-v2)
endif()

# The flags of all but the tests, which watch the code of libraries and programs: the tests' own is
# compiled alike in every build of one type, so that ccache has it for the second one.
add_library(sylvomex_options INTERFACE)
target_link_libraries(sylvomex_options INTERFACE sylvomex_flags)
if(SYLVOMEX_SANITIZE)
  target_compile_options(sylvomex_options INTERFACE
    -O1 -g1 -UNDEBUG
    -fsanitize=${SYLVOMEX_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(sylvomex_options INTERFACE -fsanitize=${SYLVOMEX_SANITIZE})
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # The checks that the sanitizers weave in hide from g++ 12 what std::optional knows of itself: it
    # then takes the destruction of an empty one for a use (PR 80635). Release builds keep the warning.
    target_compile_options(sylvomex_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()

# Headers of the standard library, of the test framework and of Qt are read once for all targets
# that are compiled with the same flags. No header of our own is among them: changing one
# recompiles only what includes it.
# sylvomex_precompile(<target> <header>...)
function(sylvomex_precompile target)
  target_precompile_headers(${target} PRIVATE ${ARGN})
  # g++ never writes the same bytes twice: ccache goes by this sum instead (CCACHE_PCH_EXTSUM), and so
  # finds what was compiled with the precompiled headers of another checkout.
  file(SHA256 ${CMAKE_CURRENT_FUNCTION_LIST_FILE} options)
  get_target_property(flags ${target} LINK_LIBRARIES)
  if(sylvomex_options IN_LIST flags)
    string(APPEND options ${SYLVOMEX_SANITIZE})
  endif()
  string(SHA256 sum "${ARGN} ${options} ${CMAKE_CXX_COMPILER_VERSION} ${GTest_VERSION}
    ${Qt6_VERSION} ${CMAKE_BUILD_TYPE} ${CMAKE_CXX_FLAGS}")
  file(CONFIGURE CONTENT "${sum}"
       OUTPUT ${CMAKE_CURRENT_BINARY_DIR}/CMakeFiles/${target}.dir/cmake_pch.hxx.gch.sum)
endfunction()

set(standard_headers
  <algorithm> <array> <cmath> <cstdint> <filesystem> <fstream> <functional> <limits> <map> <memory>
  <optional> <random> <span> <sstream> <string> <string_view> <utility> <vector>)
add_library(precompiled_standard OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled/empty.cpp)
target_link_libraries(precompiled_standard PRIVATE sylvomex_options)
sylvomex_precompile(precompiled_standard ${standard_headers})

function(sylvomex_test_options target)
  # The optimizer spends more time on the tests' own code than the tests then save.
  target_compile_options(${target} PRIVATE $<$<CONFIG:Release>:-O1>)
  target_link_libraries(${target} PRIVATE sylvomex_flags)
endfunction()

if(SYLVOMEX_TESTS)
  add_library(precompiled_tests OBJECT ${CMAKE_SOURCE_DIR}/cmake/precompiled/empty.cpp)
  target_link_libraries(precompiled_tests PRIVATE GTest::gtest)
  sylvomex_test_options(precompiled_tests)
  sylvomex_precompile(precompiled_tests <gtest/gtest.h> <iostream> ${standard_headers})
endif()

# sylvomex_library(<name> <dependency>...): a static library of the sources of the present
# folder (not of its sub-folders), seen as "folder/header.h" from src/.
function(sylvomex_library name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  add_library(${name} STATIC ${sources})
  target_include_directories(${name} PUBLIC ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${name} PUBLIC ${ARGN} PRIVATE sylvomex_options)
  set_target_properties(${name} PROPERTIES LINKER_LANGUAGE CXX)
  if(NOT Qt6::Widgets IN_LIST ARGN)  # Qt brings flags of its own
    target_precompile_headers(${name} REUSE_FROM precompiled_standard)
  endif()
endfunction()

# sylvomex_test(<name> <dependency>...): one test program of the sources of the present folder.
function(sylvomex_test name)
  file(GLOB sources CONFIGURE_DEPENDS *.cpp)
  if(NOT sources)
    return()
  endif()
  add_executable(${name} ${sources})
  target_include_directories(${name} PRIVATE ${CMAKE_SOURCE_DIR}/tests)
  target_link_libraries(${name} PRIVATE ${ARGN} GTest::gtest_main)
  sylvomex_test_options(${name})
  target_precompile_headers(${name} REUSE_FROM precompiled_tests)
  # A busy machine may need longer than the usual 5 s to start a program.
  gtest_discover_tests(${name} DISCOVERY_MODE PRE_TEST DISCOVERY_TIMEOUT 120)
endfunction()
