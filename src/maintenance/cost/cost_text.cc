#include <fmt/chrono.h>
#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>

#include "maintenance/cost/cost_report.h"
#include "maintenance/cost/library_steps.h"
#include "report/decision_text.h"
#include "report/escape/printable.h"
#include "report/text/node_text.h"

namespace cost {
namespace {

using std::chrono::nanoseconds;

double milliseconds(nanoseconds time) { return std::chrono::duration<double, std::milli>(time).count(); }

/// "12.3 ms", "4.2 s".
std::string time_text(nanoseconds time) {
  const double value = milliseconds(time);
  return value < 1000 ? fmt::format("{:.1f} ms", value) : fmt::format("{:.1f} s", value / 1000);
}

/// "x2.0"; a dash where there is nothing to compare.
std::string growth_text(std::uint64_t calls, std::uint64_t doubled) {
  if (calls == 0 || doubled == 0) return "-";
  return fmt::format("x{:.1f}", static_cast<double>(doubled) / static_cast<double>(calls));
}

std::string step_name(const std::string &function) {
  const auto rules = rules_of_function(function);
  return rules.empty() ? function : fmt::format("{} [{}]", function, fmt::join(rules, ", "));
}

class CostText {
 public:
  CostText(std::ostream &out, const CostReport &report) : out_(out), report_(report) {}

  void write() {
    out_ << "commit " << report::decision_text(report_.commit.decision) << ", "
         << report::grouped(report_.commit.total()) << " platform calls; when it is doubled "
         << report::grouped(report_.doubled.total()) << " ("
         << growth_text(report_.commit.total(), report_.doubled.total()) << ")\n";
    for (const PointCost &point : report_.commit.points) write_point(point);
    if (report_.latencies) write_forecast();
  }

 private:
  void write_point(const PointCost &point) {
    const PointCost *doubled = report_.doubled.find(point.point);
    out_ << '\n'
         << point.point << ": " << report::grouped(point.total()) << " calls, "
         << growth_text(point.total(), doubled == nullptr ? 0 : doubled->total());
    if (report_.latencies) out_ << ", " << time_text(time_of(point, *report_.latencies));
    out_ << '\n';
    std::vector<StepCost> steps = point.steps;
    std::stable_sort(steps.begin(), steps.end(),
                     [](const StepCost &a, const StepCost &b) { return a.total() > b.total(); });
    for (const StepCost &step : steps) write_step(step, doubled);
  }

  void write_step(const StepCost &step, const PointCost *doubled) {
    std::uint64_t calls = 0;
    for (const StepCost &other : doubled == nullptr ? std::vector<StepCost>() : doubled->steps) {
      if (other.function == step.function) calls = other.total();
    }
    out_ << fmt::format("  {:>9}  {:>6}", report::grouped(step.total()), growth_text(step.total(), calls));
    if (report_.latencies) out_ << fmt::format("  {:>10}", time_text(time_of(step, *report_.latencies)));
    out_ << "  " << step_name(step.function) << '\n';
  }

  void write_forecast() {
    out_ << "\nforecast with " << report::printable(report_.latency_source) << ": "
         << time_text(time_of(report_.commit, *report_.latencies)) << " in platform calls, and "
         << time_text(report_.commit.own_time) << " that this machine takes for the rest\n";
    for (const PointCost &point : report_.commit.points) write_wait(point);
    if (report_.waited) {
      const nanoseconds expected = forecast(report_);
      out_ << "with a platform that waits: " << time_text(*report_.waited) << ", forecast " << time_text(expected)
           << fmt::format(" ({:+.1f} %)\n",
                          100 * (milliseconds(expected) / std::max(milliseconds(*report_.waited), 1e-6) - 1));
    }
  }

  void write_wait(const PointCost &point) {
    out_ << "  " << point.point << ": longest question " << time_text(point.longest) << ", time-outs extended "
         << point.extensions << ", at most " << time_text(point.longest_wait) << " without an extension\n";
    if (point.overdue_step.empty()) return;
    out_ << fmt::format("    does not hold its time, {} s: it is over in ", report_.time_out.count())
         << step_name(point.overdue_step) << '\n';
  }

  std::ostream &out_;
  const CostReport &report_;
};

}  // namespace

nanoseconds forecast(const CostReport &report) {
  return time_of(report.commit, report.latencies.value_or(Latencies{})) + report.commit.own_time;
}

bool holds_its_time(const CostReport &report) {
  return std::all_of(report.commit.points.begin(), report.commit.points.end(),
                     [](const PointCost &point) { return point.overdue_step.empty(); });
}

void write_text(std::ostream &out, const CostReport &report) { CostText(out, report).write(); }

}  // namespace cost
