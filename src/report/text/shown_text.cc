#include "report/text/shown_text.h"

#include "report/escape/printable.h"

namespace report {

void write_shown_text(std::ostream &out, const ShownNodes &nodes) {
  for (const ShownNode &node : nodes) {
    out << printable(node.path) << (node.value.empty() ? "" : ": ") << printable(node.value) << '\n';
  }
}

}  // namespace report
