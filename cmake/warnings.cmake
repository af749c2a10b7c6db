# The project's warnings, all of them errors; linked by every target of its own.
add_library(project_warnings INTERFACE)
target_compile_options(
  project_warnings
  INTERFACE -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wconversion
            -Wsign-conversion
            -Wold-style-cast
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wformat=2
            -Werror)

# GCC 12 sees overlapping copies in the concatenation of strings, and with a sanitizer uninitialised members in
# std::regex, where there are none.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(project_warnings INTERFACE -Wno-restrict)
  if(CMAKE_CXX_FLAGS MATCHES "-fsanitize=")
    target_compile_options(project_warnings INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
