# orlek_fuzz(name [INLINE] [CORPUS folder] [DICT name] [LONGEST bytes] OWN source...):
# fuzz/<name>.cpp with the corpus fuzz/corpus/<name> and the dictionary fuzz/<name>.dict, unless
# CORPUS or DICT name those of another target. OWN lists the sources below src/ that the target is
# there to reach; INLINE says that they stand in headers. No input is longer than LONGEST, 4096 unless
# given. With ORLEK_BUILD_FUZZ it is a libFuzzer program; otherwise the same source is a test that
# replays the corpus. The target orlek_fuzz_targets builds all of them; fuzz_targets.txt in the build
# folder lists them for campaign.sh and coverage.sh, a line each: name, corpus, dictionary, longest
# input, sources.
#
# In the preset fuzz, with ORLEK_FUZZ_WITHOUT_FILES, the library's file layer gives way to one in memory:
# for long runs, in which system calls would be most of the time. The library of such a build is of no
# other use.
add_custom_target(orlek_fuzz_targets)
if(ORLEK_BUILD_FUZZ AND ORLEK_FUZZ_WITHOUT_FILES)
  get_target_property(sources orlek_objects SOURCES)
  list(FILTER sources EXCLUDE REGEX "posix/(AtomicFile|DirectorySearch|RegularFile).cpp$")
  set_property(TARGET orlek_objects PROPERTY SOURCES ${sources})
  add_library(orlek_fuzz_files OBJECT "${PROJECT_SOURCE_DIR}/fuzz/FilesWithoutSystem.cpp")
else()
  add_library(orlek_fuzz_files OBJECT "${PROJECT_SOURCE_DIR}/fuzz/MemoryFile.cpp")
endif()
target_include_directories(orlek_fuzz_files PRIVATE "${PROJECT_SOURCE_DIR}/tests")
target_link_libraries(orlek_fuzz_files PRIVATE orlek_compiler orlek_objects)
set(orlek_fuzz_list "${PROJECT_BINARY_DIR}/fuzz_targets.txt")
file(WRITE "${orlek_fuzz_list}" "")

function(orlek_fuzz name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INLINE" "CORPUS;DICT;LONGEST" "OWN")
  if(NOT arg_LONGEST)
    set(arg_LONGEST 4096)
  endif()
  foreach(of IN ITEMS CORPUS DICT)
    if(NOT arg_${of})
      set(arg_${of} ${name})
    endif()
  endforeach()
  set(corpus "${CMAKE_CURRENT_SOURCE_DIR}/corpus/${arg_CORPUS}")
  set(dictionary "${CMAKE_CURRENT_SOURCE_DIR}/${arg_DICT}.dict")
  add_executable(fuzz_${name} ${name}.cpp)
  target_include_directories(fuzz_${name} PRIVATE
    "${PROJECT_SOURCE_DIR}/fuzz" "${PROJECT_SOURCE_DIR}/tests")
  target_link_libraries(fuzz_${name} PRIVATE orlek_compiler orlek_objects orlek_fuzz_files)
  if(ORLEK_BUILD_FUZZ)
    # The fuzzer follows the branches of the library, not those of the model that judges it.
    if(arg_INLINE)
      target_compile_options(fuzz_${name} PRIVATE -fsanitize=fuzzer-no-link)
    endif()
    target_link_options(fuzz_${name} PRIVATE -fsanitize=fuzzer)
    add_test(NAME fuzz_${name} COMMAND fuzz_${name} -dict=${dictionary}
      -max_len=${arg_LONGEST} -runs=20000 -max_total_time=5 -timeout=10 -rss_limit_mb=2048
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
  list(JOIN arg_OWN " " own)
  file(APPEND "${orlek_fuzz_list}" "${name} ${arg_CORPUS} ${arg_DICT} ${arg_LONGEST} ${own}\n")
endfunction()
