#include <fmt/format.h>

#include <string_view>

#include "maintenance/queue/queue_report.h"
#include "report/escape/printable.h"
#include "report/passed_over.h"
#include "report/text/explanation_text.h"
#include "report/text/node_text.h"

namespace queue {
namespace {

using report::printable;

class TextWriter {
 public:
  TextWriter(std::ostream &out, const QueueReport &report) : out_(out), report_(report) {}

  void write() {
    out_ << "changes: " << report_.names.size() << ", each alone on " << printable(report_.running) << '\n';
    for (std::size_t i = 0; i < report_.names.size(); ++i) write_step("  ", name(i) + ": ", report_.alone[i]);
    write_pairs(PairKind::exclusive, "exclude each other");
    write_pairs(PairKind::one_order, "go through in one order alone");
    write_pairs(PairKind::needs, "go through because another one went before");
    write_pairs(PairKind::order_matters, "leave another configuration in the other order");
    write_pairs_left();
    write_order();
    if (!report_.contract_violation.empty()) {
      out_ << "the library broke its contract: " << printable(report_.contract_violation) << '\n';
    }
    out_ << "calls of the library: " << report::grouped(report_.calls) << '\n';
  }

 private:
  std::string name(std::size_t change) const { return printable(report_.names[change]); }

  void write_step(std::string_view indent, const std::string &lead, const StepReport &step) {
    const std::string reason = step.outcome == StepOutcome::accepted ? "" : reason_text(step);
    out_ << indent << lead << outcome_text(step) << (reason.empty() ? "" : ": ") << printable(reason) << '\n';
    for (const report::Finding &finding : step.findings) {
      if (!finding.is_warning) {
        write_parties(indent, finding);
      } else if (step.outcome == StepOutcome::accepted) {
        out_ << indent << "  warning: " << printable(finding.message) << '\n';
      }
    }
  }

  void write_parties(std::string_view indent, const report::Finding &finding) {
    report::write_list(out_, std::string(indent) + "  ", finding.parties, [&](const report::PartyReport &party) {
      out_ << indent << "  ";
      report::write_party(out_, party, report::TextStyle(false));
    });
  }

  void write_pairs(PairKind kind, std::string_view what) {
    std::size_t count = 0;
    for (const PairReport &pair : report_.pairs) {
      if (pair.kind != kind) continue;
      if (count++ == 0) out_ << "\npairs that " << what << ":\n";
      write_pair(pair);
    }
  }

  void write_pair(const PairReport &pair) {
    const std::string first = name(pair.first);
    const std::string second = name(pair.second);
    switch (pair.kind) {
      case PairKind::exclusive:
        out_ << "  " << first << " and " << second << '\n';
        write_step("    ", fmt::format("{} behind {}: ", second, first), pair.second_on_first);
        write_step("    ", fmt::format("{} behind {}: ", first, second), pair.first_on_second);
        return;
      case PairKind::one_order:
        out_ << "  " << first << ", then " << second << '\n';
        write_step("    ", fmt::format("{} behind {}: ", first, second), pair.first_on_second);
        return;
      case PairKind::needs:
        out_ << "  " << first << ", then " << second << '\n';
        return;
      case PairKind::order_matters:
        out_ << "  " << first << " and " << second << ": at " << printable(pair.differs) << '\n';
        return;
    }
  }

  void write_pairs_left() {
    if (report_.pairs_asked == report_.pairs_possible) return;
    out_ << fmt::format("\npairs asked about: {} of {}, for the search ended before\n",
                        report::grouped(report_.pairs_asked), report::grouped(report_.pairs_possible));
  }

  void write_order() {
    out_ << '\n' << sum_text(report_) << '\n';
    for (std::size_t i = 0; i < report_.order.size(); ++i) {
      write_step("  ", fmt::format("{}. {}: ", i + 1, name(report_.order[i])), report_.steps[i]);
    }
    if (!report_.left_out.empty()) out_ << "left out, behind all of these:\n";
    for (std::size_t i = 0; i < report_.left_out.size(); ++i) {
      write_step("  ", name(report_.left_out[i]) + ": ", report_.left_out_steps[i]);
    }
  }

  std::ostream &out_;
  const QueueReport &report_;
};

}  // namespace

void write_text(std::ostream &out, const QueueReport &report) { TextWriter(out, report).write(); }

}  // namespace queue
