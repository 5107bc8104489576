# Read by CMake behind the project's first line (CMAKE_PROJECT_Orlek_INCLUDE): has the library, and
# nothing else, count which of its lines are reached.
function(orlek_count_lines)
  target_compile_options(orlek_objects PRIVATE --coverage -O0 -fprofile-update=atomic)
  target_sources(orlek_objects PRIVATE "${CMAKE_CURRENT_FUNCTION_LIST_DIR}/count_at_exit.cpp")
  target_link_options(orlek_objects INTERFACE --coverage)
  # The script would hide the function that takes the place of _exit.
  get_target_property(options orlek LINK_OPTIONS)
  list(FILTER options EXCLUDE REGEX "version-script")
  set_property(TARGET orlek PROPERTY LINK_OPTIONS "${options}")
endfunction()
cmake_language(DEFER CALL orlek_count_lines)
