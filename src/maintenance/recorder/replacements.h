#ifndef MAINTENANCE_RECORDER_REPLACEMENTS_H
#define MAINTENANCE_RECORDER_REPLACEMENTS_H

#include "maintenance/hooks/hooking.h"

namespace recorder {

/// Sets the functions that record a call and pass it on, for the management agent; for its reads by cursor and of
/// changes; and for the rest of the platform and the clock.
void add_agent(hooks::Addresses &replacements);
void add_cursors(hooks::Addresses &replacements);
void add_card(hooks::Addresses &replacements);
void add_middleware(hooks::Addresses &replacements);

/// All of them.
inline hooks::Addresses all_replacements() {
  hooks::Addresses replacements{};
  add_agent(replacements);
  add_cursors(replacements);
  add_card(replacements);
  add_middleware(replacements);
  return replacements;
}

/// Sets one.
template <typename Type>
void add(hooks::Addresses &replacements, recording::Function function, Type *replacement) {
  replacements[static_cast<std::size_t>(function)] = reinterpret_cast<void *>(replacement);
}

}  // namespace recorder

#endif
