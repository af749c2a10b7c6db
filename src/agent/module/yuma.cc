#include "agent/module/yuma.h"

namespace agent {

// NOLINTBEGIN(cppcoreguidelines-pro-type-reinterpret-cast)
const xmlChar *to_xml(const char *text) { return reinterpret_cast<const xmlChar *>(text); }

const xmlChar *to_xml(const std::string &text) { return to_xml(text.c_str()); }

std::string from_xml(const xmlChar *text) { return text == nullptr ? "" : reinterpret_cast<const char *>(text); }
// NOLINTEND(cppcoreguidelines-pro-type-reinterpret-cast)

}  // namespace agent
