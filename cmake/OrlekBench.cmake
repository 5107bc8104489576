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
