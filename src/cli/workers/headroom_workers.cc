#include "cli/workers/headroom_workers.h"

#include <fmt/format.h>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <utility>

#include "cli/command_line/errors.h"
#include "cli/terminal/progress.h"
#include "cli/workers/worker_failure.h"
#include "element/datastore/transaction.h"
#include "element/input/input_error.h"
#include "process/batch.h"
#include "process/interrupts.h"
#include "report/json/headroom_json.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

void require_readable(const HeadroomInputs &inputs, std::ostream &err) {
  const element::Schema schema;
  const auto [running, candidate] = read_configurations(schema, inputs, err);
  for (const fs::path &file : inputs.elements) {
    const element::Profile profile = element::read_profile(file);
    try {
      element::make_transaction(running, candidate, profile);
    } catch (const element::InputError &error) {
      throw element::InputError(fmt::format("{}: {}", file.string(), error.what()));
    }
  }
}

process::Batch make_batch(const HeadroomInputs &inputs, const fs::path &plugin_file, const fs::path &program) {
  process::Batch batch{program, {}, std::max(std::thread::hardware_concurrency(), 1U)};
  for (const fs::path &element : inputs.elements) {
    batch.arguments.push_back({"headroom", "--format=json", "--plugin=" + plugin_file.string(),
                               "--element=" + element.string(), "--running=" + inputs.running.string()});
    std::vector<std::string> &arguments = batch.arguments.back();
    for (const fs::path &edit : inputs.edits) arguments.push_back("--edit=" + edit.string());
    if (inputs.edits.empty()) arguments.push_back("--candidate=" + inputs.candidate.string());
  }
  return batch;
}

std::vector<process::Result> run(const process::Batch &batch, const Environment &environment) {
  std::vector<process::Result> results(batch.arguments.size());
  std::size_t done = 0;
  Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  const auto finished = [&](std::size_t index, process::Result result) {
    results[index] = std::move(result);
    ++done;
  };
  const auto waiting = [&] {
    progress.update([&] { return fmt::format("{} of {} elements measured", done, results.size()); });
  };
  try {
    process::run_all(batch, {finished, waiting});
  } catch (const process::Interrupted &interrupted) {
    progress.clear();
    std::raise(interrupted.signal);
    throw std::runtime_error(fmt::format("ended by signal {}", interrupted.signal));
  }
  return results;
}

}  // namespace

report::HeadroomReport measure_in_workers(const HeadroomInputs &inputs, const fs::path &plugin_file,
                                          const Environment &environment) {
  require_readable(inputs, environment.err);
  const std::vector<process::Result> results = run(make_batch(inputs, plugin_file, environment.program), environment);
  report::HeadroomReport report;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (const auto failure = worker_failure(results[i])) {
      throw WorkerError(fmt::format("{}: {}", inputs.elements[i].string(), failure->text), failure->status);
    }
    report::HeadroomReport part = report::read_headroom_json(results[i].out);
    part.elements.insert(part.elements.begin(), std::make_move_iterator(report.elements.begin()),
                         std::make_move_iterator(report.elements.end()));
    report = std::move(part);
  }
  return report;
}

}  // namespace cli
