#ifndef ELEMENT_INPUT_NESTING_H
#define ELEMENT_INPUT_NESTING_H

#include <cstddef>

namespace element {

/// How deep elements, or objects and arrays, of an input may be nested. No configuration comes near it; the bound keeps
/// memory bounded.
inline constexpr std::size_t kDeepestNesting = 100;

}  // namespace element

#endif
