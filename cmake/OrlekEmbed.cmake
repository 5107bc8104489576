# orlek_embed(target FILE...): compiles text files into `target` as byte arrays with a length and
# no terminating zero. "shaders/line.vert" becomes Orlek::Detail::embedded_line_vert, a
# std::string_view declared in the generated header "Embedded.h" of the same folder.
function(orlek_embed target)
  set(outputs "")
  set(dir "${CMAKE_CURRENT_BINARY_DIR}/embedded")
  set(header "#pragma once\n#include <string_view>\n\nnamespace Orlek::Detail {\n")
  foreach(file IN LISTS ARGN)
    get_filename_component(name "${file}" NAME)
    string(MAKE_C_IDENTIFIER "embedded_${name}" symbol)
    set(output "${dir}/${symbol}.cpp")
    add_custom_command(OUTPUT "${output}"
      COMMAND "${CMAKE_COMMAND}" -DINPUT=${CMAKE_CURRENT_SOURCE_DIR}/${file} -DOUTPUT=${output}
              -DSYMBOL=${symbol} -P "${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake"
      DEPENDS "${file}" "${PROJECT_SOURCE_DIR}/cmake/EmbedFile.cmake"
      COMMENT "Embedding ${name}" VERBATIM)
    target_sources(${target} PRIVATE "${output}")
    list(APPEND outputs "${output}")
    string(APPEND header "extern const std::string_view ${symbol};\n")
  endforeach()
  # The target may be declared in another folder, where the rules above are not seen.
  set_source_files_properties(${outputs} TARGET_DIRECTORY ${target} PROPERTIES GENERATED TRUE)
  file(RELATIVE_PATH folder "${PROJECT_SOURCE_DIR}" "${CMAKE_CURRENT_SOURCE_DIR}")
  string(MAKE_C_IDENTIFIER "embed_${folder}" rules)
  add_custom_target(${rules} DEPENDS ${outputs})
  add_dependencies(${target} ${rules})
  string(APPEND header "}  // namespace Orlek::Detail\n")
  file(CONFIGURE OUTPUT "${dir}/Embedded.h" CONTENT "${header}" @ONLY)
  target_include_directories(${target} PRIVATE "${dir}")
endfunction()
