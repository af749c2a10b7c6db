# The library TARGET holds the text FILES, in the order given. Its function NAMESPACE::FUNCTION(), which HEADER declares,
# returns a vector of TYPE, each a file's name without its extension and its text. It is a library of its own so that
# nothing waits for it but the linker: CMake makes a library's generated sources only when all that it links is there.
function(add_embedded_texts target)
  cmake_parse_arguments(ARG "" "HEADER;NAMESPACE;TYPE;FUNCTION" "FILES" ${ARGN})
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${target}.cc)
  set(script ${CMAKE_SOURCE_DIR}/cmake/embed_texts.cmake)
  add_custom_command(
    OUTPUT ${source}
    COMMAND ${CMAKE_COMMAND} "-DFILES=${ARG_FILES}" -DHEADER=${ARG_HEADER} -DNAMESPACE=${ARG_NAMESPACE}
            -DTYPE=${ARG_TYPE} -DFUNCTION=${ARG_FUNCTION} -DOUTPUT=${source} -P ${script}
    DEPENDS ${ARG_FILES} ${script}
    VERBATIM)
  add_library(${target} STATIC ${source})
  set_target_properties(${target} PROPERTIES CXX_STANDARD 20)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src)
  target_link_libraries(${target} PRIVATE project_warnings)
endfunction()
