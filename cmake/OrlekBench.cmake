# orlek_bench(name SOURCES ... [INTERNAL] [GL] [LIBS ...]): one Google Benchmark program.
find_package(benchmark REQUIRED)

function(orlek_bench name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "INTERNAL;GL" "" "SOURCES;LIBS")
  add_executable(${name} ${arg_SOURCES})
  target_include_directories(${name} PRIVATE "${PROJECT_SOURCE_DIR}/bench" "${PROJECT_SOURCE_DIR}/tests")
  target_compile_definitions(${name} PRIVATE ORLEK_SOURCE_DIR="${PROJECT_SOURCE_DIR}")
  target_link_libraries(${name} PRIVATE orlek_compiler benchmark::benchmark
    $<IF:$<BOOL:${arg_INTERNAL}>,orlek_objects,Orlek::Orlek>
    $<$<BOOL:${arg_GL}>:orlek_support> ${arg_LIBS})
endfunction()

# orlek_bench_peer(name module macro): links a peer known to pkg-config and defines the macro, or
# leaves the peer out with a message.
find_package(PkgConfig REQUIRED)

function(orlek_bench_peer name module macro)
  pkg_check_modules(${module} IMPORTED_TARGET ${module})
  if(${module}_FOUND)
    target_link_libraries(${name} PRIVATE PkgConfig::${module})
    target_compile_definitions(${name} PRIVATE ${macro})
  else()
    message(STATUS "${name}: ${module} is missing and left out")
  endif()
endfunction()

# orlek_bench_found(name header library macro): the same for a peer that pkg-config does not know; an
# empty library stands for one that is headers alone.
function(orlek_bench_found name header library macro)
  find_path(${macro}_INCLUDE ${header})
  mark_as_advanced(${macro}_INCLUDE)
  if(library)
    find_library(${macro}_LIBRARY ${library})
    mark_as_advanced(${macro}_LIBRARY)
  endif()
  if(${macro}_INCLUDE AND (NOT library OR ${macro}_LIBRARY))
    target_include_directories(${name} SYSTEM PRIVATE "${${macro}_INCLUDE}")
    target_link_libraries(${name} PRIVATE $<$<BOOL:${library}>:${${macro}_LIBRARY}>)
    target_compile_definitions(${name} PRIVATE ${macro})
  else()
    message(STATUS "${name}: ${header} is missing and left out")
  endif()
endfunction()
