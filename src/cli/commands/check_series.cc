#include "cli/commands/check_series.h"

#include <fmt/format.h>

#include <algorithm>
#include <csignal>
#include <optional>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "cli/commands/outputs.h"
#include "cli/commands/undecided.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/progress.h"
#include "cli/workers/commit_result.h"
#include "process/batch.h"
#include "process/interrupts.h"
#include "report/summary.h"
#include "report/suppressions.h"
#include "report/text/summary_text.h"

namespace cli {
namespace {

process::Batch make_batch(const CheckArguments &arguments, const Environment &environment) {
  std::vector<std::string> common{arguments.is_audit ? "audit" : "check", "--format=json", "--quiet",
                                  "--plugin=" + find_plugin_file(arguments.plugin, environment).string()};
  common.insert(common.end(), arguments.forwarded_options.begin(), arguments.forwarded_options.end());
  common.emplace_back("--");
  process::Batch batch;
  batch.program = environment.program;
  batch.now = environment.clock;
  batch.jobs = arguments.jobs != 0 ? arguments.jobs : std::max(std::thread::hardware_concurrency(), 1U);
  for (const std::string &directory : arguments.directories) {
    batch.arguments.push_back(common);
    batch.arguments.back().push_back(directory);
  }
  return batch;
}

/// Takes results in any order, gives them out in the order of the arguments.
class Series {
 public:
  Series(const CheckArguments &arguments, const Environment &environment)
      : arguments_(arguments),
        names_(arguments.directories),
        environment_(environment),
        outputs_(arguments, environment, TextForm::by_commit),
        progress_(environment.err, environment.err_is_terminal, environment.clock),
        waiting_(names_.size()) {}

  /// Reads what all commits share: a fault in it is one result, not one for each of them.
  bool can_begin() {
    std::string name;
    try {
      report::Suppressions suppressions(environment_.today());
      for (const std::string &file : arguments_.suppressions) {
        name = file;
        suppressions.read(file);
      }
      return true;
    } catch (...) {
      const report::CommitResult result = tell_undecided(arguments_, environment_, name, outputs_);
      decided_.add(result.commit);
      worst_ = static_cast<ExitStatus>(result.exit_status);
      return false;
    }
  }

  void take(std::size_t index, const process::Result &process_result) {
    report::CommitResult result = commit_result(names_[index], process_result);
    decided_.add(result.commit);
    const auto status = static_cast<ExitStatus>(result.exit_status);
    worst_ = std::max(worst_, status, [](ExitStatus a, ExitStatus b) { return severity(a) < severity(b); });
    waiting_[index] = std::move(result);
    while (next_ < waiting_.size() && waiting_[next_]) give_out(std::exchange(waiting_[next_], std::nullopt).value());
  }

  void show_progress() {
    progress_.update([this] {
      return fmt::format("{} of {} commits decided, {} rejected", decided_.commits, names_.size(), decided_.rejected);
    });
  }

  /// Leaves what was given out on standard output so far.
  void abandon() {
    progress_.clear();
    environment_.out.flush();
    outputs_.discard();
  }

  ExitStatus finish(bool is_text) {
    progress_.clear();
    outputs_.finish(decided_, worst_);
    if (!is_text) report::write_summary(environment_.err, decided_);
    tell_suppressions(environment_.err, "unused", decided_.unused_suppressions);
    tell_suppressions(environment_.err, "expired", decided_.expired_suppressions);
    return worst_;
  }

 private:
  void give_out(const report::CommitResult &result) {
    ++next_;
    if (environment_.out_is_terminal) progress_.clear();
    outputs_.write(result);
  }

  const CheckArguments &arguments_;
  const std::vector<std::string> &names_;
  const Environment &environment_;
  Outputs outputs_;
  Progress progress_;
  report::SeriesSummary decided_;
  ExitStatus worst_ = ExitStatus::accepted;
  std::vector<std::optional<report::CommitResult>> waiting_;
  std::size_t next_ = 0;
};

}  // namespace

ExitStatus check_series(const CheckArguments &arguments, const Environment &environment) {
  Series series(arguments, environment);
  if (!series.can_begin()) return series.finish(arguments.format == Format::text);
  const process::Batch batch = make_batch(arguments, environment);
  const process::BatchEvents events{
      [&series](std::size_t index, const process::Result &result) { series.take(index, result); },
      [&series] { series.show_progress(); }};
  try {
    process::run_all(batch, events);
  } catch (const process::Interrupted &interrupted) {
    series.abandon();
    std::raise(interrupted.signal);
    throw std::runtime_error(fmt::format("ended by signal {}", interrupted.signal));
  }
  return series.finish(arguments.format == Format::text);
}

}  // namespace cli
