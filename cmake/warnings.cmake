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
