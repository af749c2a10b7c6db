# The library headers that most sources of the element and the command include, compiled once for all of them. A build of
# single sources goes without, so that each shows that it includes what it needs.
function(use_precompiled_headers target)
  if(NOT CMAKE_UNITY_BUILD)
    return()
  endif()
  if(target STREQUAL "element")
    target_precompile_headers(
      element
      PRIVATE <algorithm>
              <array>
              <charconv>
              <chrono>
              <filesystem>
              <functional>
              <map>
              <memory>
              <optional>
              <ostream>
              <set>
              <sstream>
              <stdexcept>
              <string>
              <string_view>
              <unordered_map>
              <vector>
              <fmt/format.h>)
  else()
    target_precompile_headers(${target} REUSE_FROM element)
  endif()
endfunction()
