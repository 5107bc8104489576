# Functions that declare tests. Each executable is one ctest test. The target orlek_tests builds
# what they need and nothing else, orlek_threads those with the label "threads": the tests worth a
# run under the thread sanitizer.
find_package(GTest REQUIRED)
add_custom_target(orlek_tests)
add_custom_target(orlek_threads)

# What every test includes is compiled once, with the options of the tests. It takes longer than the
# rest of most of them.
file(CONFIGURE OUTPUT "${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp" CONTENT "")
add_library(orlek_test_headers OBJECT "${CMAKE_CURRENT_BINARY_DIR}/test_headers.cpp")
set_target_properties(orlek_test_headers PROPERTIES POSITION_INDEPENDENT_CODE OFF)
target_compile_options(orlek_test_headers PRIVATE -fPIE -O0)
target_link_libraries(orlek_test_headers PRIVATE orlek_compiler GTest::gtest)
target_precompile_headers(orlek_test_headers PRIVATE <gtest/gtest.h> <algorithm> <array> <cmath>
  <cstdint> <filesystem> <fstream> <functional> <map> <random> <sstream> <string> <vector>)

# A source with options of its own, which do not fit the compiled headers, parses them itself.
function(orlek_skip_test_headers name)
  get_target_property(sources ${name} SOURCES)
  foreach(source IN LISTS sources)
    get_source_file_property(options "${source}" COMPILE_OPTIONS)
    if(options)
      set_source_files_properties("${source}" PROPERTIES SKIP_PRECOMPILE_HEADERS ON)
    endif()
  endforeach()
endfunction()

function(orlek_add_test name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "GL" "" "SOURCES;LIBS;LABELS")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE ORLEK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE orlek_compiler GTest::gtest GTest::gtest_main ${arg_LIBS})
  # The library is tested as it ships; optimising the tests themselves would only double the time
  # that they take to build.
  target_compile_options(${name} PRIVATE -O0)
  target_precompile_headers(${name} REUSE_FROM orlek_test_headers)
  cmake_language(EVAL CODE "cmake_language(DEFER CALL orlek_skip_test_headers ${name})")
  # Tests of different things use the same short names.
  set_target_properties(${name} PROPERTIES UNITY_BUILD OFF)
  if(arg_GL)
    target_link_libraries(${name} PRIVATE orlek_support)
    list(APPEND arg_LABELS gl)
  endif()
  add_test(NAME ${name} COMMAND ${name})
  set_tests_properties(${name} PROPERTIES TIMEOUT 300)
  add_dependencies(orlek_tests ${name})
  if("threads" IN_LIST arg_LABELS)
    add_dependencies(orlek_threads ${name})
  endif()
  if(arg_LABELS)
    set_tests_properties(${name} PROPERTIES LABELS "${arg_LABELS}")
  endif()
endfunction()

# A test of internals links the objects; a test of the interface links the shared library. Never
# both in one program: there would be two of each singleton.
function(orlek_internal_test name)
  orlek_add_test(${name} ${ARGN} LIBS orlek_objects)
endfunction()

function(orlek_interface_test name)
  orlek_add_test(${name} ${ARGN} LIBS Orlek::Orlek)
endfunction()
