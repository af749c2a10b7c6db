#include <fmt/format.h>

#include <string_view>

#include "maintenance/queue/queue_report.h"
#include "report/escape/markdown.h"

namespace queue {
namespace {

using report::to_markdown;

std::string named(const QueueReport &report, std::size_t change) { return to_markdown(report.names[change]); }

std::string table_row(const QueueReport &report, std::size_t change, const StepReport &step) {
  const std::string reason = step.outcome == StepOutcome::accepted ? "" : to_markdown(reason_text(step));
  return fmt::format("| {} | {} | {} |\n", named(report, change), outcome_text(step), reason);
}

std::string pair_line(const QueueReport &report, const PairReport &pair) {
  const std::string first = named(report, pair.first);
  const std::string second = named(report, pair.second);
  switch (pair.kind) {
    case PairKind::exclusive:
      return fmt::format("- **{}** and **{}** exclude each other: {}\n", first, second,
                         to_markdown(reason_text(pair.second_on_first)));
    case PairKind::one_order:
      return fmt::format("- **{}** must go before **{}**: {}\n", first, second,
                         to_markdown(reason_text(pair.first_on_second)));
    case PairKind::needs:
      return fmt::format("- **{}** goes through because **{}** went before\n", second, first);
    case PairKind::order_matters:
      return fmt::format("- **{}** and **{}** leave another configuration in the other order: {}\n", first, second,
                         to_markdown(pair.differs));
  }
  return {};
}

}  // namespace

void write_markdown(std::ostream &out, const QueueReport &report) {
  out << "**vpnval queue: " << to_markdown(sum_text(report)) << "**\n";
  if (!report.order.empty()) out << '\n';
  for (std::size_t i = 0; i < report.order.size(); ++i) {
    out << fmt::format("{}. {}: {}\n", i + 1, named(report, report.order[i]), outcome_text(report.steps[i]));
  }
  if (!report.left_out.empty()) out << "\n| left out, behind all of these | | why |\n|---|---|---|\n";
  for (std::size_t i = 0; i < report.left_out.size(); ++i) {
    out << table_row(report, report.left_out[i], report.left_out_steps[i]);
  }
  if (!report.pairs.empty()) out << '\n';
  for (const PairReport &pair : report.pairs) out << pair_line(report, pair);
  if (report.pairs_asked != report.pairs_possible) {
    out << fmt::format("\nPairs asked about: {} of {}, for the search ended before.\n", report.pairs_asked,
                       report.pairs_possible);
  }
  out << "\n| change, alone | | why |\n|---|---|---|\n";
  for (std::size_t i = 0; i < report.alone.size(); ++i) out << table_row(report, i, report.alone[i]);
}

}  // namespace queue
