#include "report/text/rollback_text.h"

#include <algorithm>

#include "report/decision_text.h"
#include "report/escape/printable.h"

namespace report {

void write_rollback_verdict(std::ostream &out, const host::Verdict &verdict, const TextStyle &style) {
  const std::string_view text = decision_text(verdict.decision);
  out << "\nthe way back: ";
  if (verdict.decision == host::Decision::accepted) {
    out << text << '\n';
    return;
  }
  const bool is_rejected = verdict.decision == host::Decision::rejected;
  out << style(is_rejected ? Accent::rejected : Accent::warning, text);
  const auto rejection =
      std::find_if(verdict.points.begin(), verdict.points.end(),
                   [](const host::PointVerdict &point) { return point.answer == host::Answer::rejected; });
  if (rejection != verdict.points.end()) out << ": " << style(Accent::message, printable(rejection->text));
  out << '\n';
}

}  // namespace report
