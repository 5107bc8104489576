# orlek_fuzz(name): fuzz/<name>.cpp with the corpus fuzz/corpus/<name> and, where there is one, the
# dictionary fuzz/<name>.dict. With ORLEK_BUILD_FUZZ it is a libFuzzer program; otherwise the same
# source is a test that replays the corpus. The target orlek_fuzz_targets builds all of them.
add_custom_target(orlek_fuzz_targets)

function(orlek_fuzz name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBS")
  set(corpus "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${name}")
  add_executable(fuzz_${name} ${name}.cpp)
  target_include_directories(fuzz_${name} PRIVATE
    "${PROJECT_SOURCE_DIR}/fuzz" "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(fuzz_${name} PRIVATE orlek_compiler orlek_objects ${arg_LIBS})
  if(ORLEK_BUILD_FUZZ)
    target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer-no-link)
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    set(dictionary "${CMAKE_CURRENT_SOURCE_DIR}/${name}.dict")
    if(EXISTS "${dictionary}")
      set(use_dictionary "-dict=${dictionary}")
    endif()
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} ${use_dictionary} -runs=20000
      -max_total_time=5 -timeout=10 -rss_limit_mb=2048
      "${CMAKE_CURRENT_BINARY_DIR}/found/${name}" "${corpus}")
    file(MAKE_DIRECTORY "${CMAKE_CURRENT_BINARY_DIR}/found/${name}")
  else()
    target_sources(fuzz_${name} PRIVATE replay_main.cpp)
    target_compile_options(fuzz_${name} PRIVATE -O0)
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} "${corpus}")
    add_dependencies(orlek_tests fuzz_${name})
  endif()
  add_dependencies(orlek_fuzz_targets fuzz_${name})
  set_tests_properties(fuzz_${name} PROPERTIES LABELS fuzz TIMEOUT 300)
endfunction()
