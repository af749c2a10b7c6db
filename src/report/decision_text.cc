#include "report/decision_text.h"

namespace report {

std::string_view decision_text(host::Decision decision) {
  if (decision == host::Decision::accepted_with_warnings) return "accepted with warnings";
  return decision_name(decision);
}

std::string_view decision_name(host::Decision decision) {
  switch (decision) {
    case host::Decision::accepted:
      return "accepted";
    case host::Decision::accepted_with_warnings:
      return "accepted-with-warnings";
    case host::Decision::rejected:
      return "rejected";
  }
  return "?";
}

}  // namespace report
