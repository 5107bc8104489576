# Compiler settings shared by every target of this project, and ccache where it is installed.
set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

find_program(ORLEK_CCACHE ccache)
mark_as_advanced(ORLEK_CCACHE)
if(ORLEK_CCACHE AND PROJECT_IS_TOP_LEVEL AND NOT DEFINED CMAKE_CXX_COMPILER_LAUNCHER)
  # The tests' compiled headers need ccache to overlook __TIME__, which nothing here uses.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${ORLEK_CCACHE}")
endif()

add_library(orlek_compiler INTERFACE)
# No contraction: a fused multiply-add would change last digits between machines.
target_compile_options(orlek_compiler INTERFACE
  -Wall -Wextra -Wpedantic -Wconversion -Wshadow -ffp-contract=off
  $<$<BOOL:${ORLEK_WERROR}>:-Werror>)
if(ORLEK_SANITIZE)
  target_compile_options(orlek_compiler INTERFACE
    -fsanitize=${ORLEK_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    # Instrumented code hides initialisations from gcc, which then warns about std::regex itself.
    target_compile_options(orlek_compiler INTERFACE -Wno-maybe-uninitialized)
  endif()
  target_link_options(orlek_compiler INTERFACE -fsanitize=${ORLEK_SANITIZE})
endif()
