# Writes the text files FILES into OUTPUT as C++ string literals, in the order given. OUTPUT defines
# NAMESPACE::FUNCTION(), which HEADER declares: it returns a vector of TYPE, each a file's name without its extension
# and its text.
set(text "#include \"${HEADER}\"\n\nnamespace ${NAMESPACE} {\n\n")
string(APPEND text "const std::vector<${TYPE}> &${FUNCTION}() {\n")
string(APPEND text "  static const std::vector<${TYPE}> files{\n")
foreach(file IN LISTS FILES)
  get_filename_component(name ${file} NAME_WE)
  file(READ ${file} content)
  string(APPEND text "      {\"${name}\", R\"embedded(${content})embedded\"},\n")
endforeach()
string(APPEND text "  };\n  return files;\n}\n\n}  // namespace ${NAMESPACE}\n")
file(WRITE ${OUTPUT} "${text}")
