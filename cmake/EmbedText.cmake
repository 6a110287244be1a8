# celdora_embed_text(OUT_CPP NAMESPACE FUNCTION FILE)
# Writes a source file whose function returns the contents of FILE, so that the
# schema scripts travel inside the binaries that need them.
function(celdora_embed_text out_cpp function_name input_file)
  file(READ "${input_file}" contents)
  set(delim "celdora_sql")
  file(WRITE "${out_cpp}.tmp"
    "// Generated from ${input_file}; do not edit.\n"
    "#include <string_view>\n"
    "namespace celdora::schema {\n"
    "std::string_view ${function_name}() {\n"
    "  static constexpr char text[] = R\"${delim}(${contents})${delim}\";\n"
    "  return {text, sizeof(text) - 1};\n"
    "}\n"
    "}\n")
  file(COPY_FILE "${out_cpp}.tmp" "${out_cpp}" ONLY_IF_DIFFERENT)
  set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${input_file}")
endfunction()
