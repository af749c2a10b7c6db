#include "cli/children/headroom_children.h"

#include <fmt/format.h>

#include <algorithm>
#include <csignal>
#include <iterator>
#include <stdexcept>
#include <thread>
#include <utility>

#include "cli/children/child_failure.h"
#include "cli/errors.h"
#include "cli/output/headroom_json.h"
#include "cli/output/progress.h"
#include "element/datastore/transaction.h"
#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "process/batch.h"
#include "process/interrupts.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

void require_readable(const HeadroomInputs &inputs) {
  const element::Schema schema;
  const element::Tree running = element::read_configuration(schema, inputs.running);
  const element::Tree candidate = element::read_configuration(schema, inputs.candidate);
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
                               "--element=" + element.string(), "--running=" + inputs.running.string(),
                               "--candidate=" + inputs.candidate.string()});
  }
  return batch;
}

std::vector<process::Result> run(const process::Batch &batch, const Environment &environment) {
  std::vector<process::Result> results(batch.arguments.size());
  std::size_t done = 0;
  Progress progress(environment.err, environment.err_is_terminal);
  const auto finished = [&](std::size_t index, process::Result result) {
    results[index] = std::move(result);
    ++done;
  };
  const auto waiting = [&] {
    progress.tell([&] { return fmt::format("{} of {} elements measured", done, results.size()); });
  };
  try {
    process::run_all(batch, {finished, waiting});
  } catch (const process::Interrupted &interrupted) {
    progress.hide();
    std::raise(interrupted.signal);
    throw std::runtime_error(fmt::format("ended by signal {}", interrupted.signal));
  }
  return results;
}

}  // namespace

HeadroomReport measure_in_children(const HeadroomInputs &inputs, const fs::path &plugin_file,
                                   const Environment &environment) {
  require_readable(inputs);
  const std::vector<process::Result> results = run(make_batch(inputs, plugin_file, environment.program), environment);
  HeadroomReport report;
  for (std::size_t i = 0; i < results.size(); ++i) {
    if (const auto failure = child_failure(results[i])) {
      throw ChildError(fmt::format("{}: {}", inputs.elements[i].string(), failure->text), failure->status);
    }
    HeadroomReport part = read_headroom_json(results[i].out);
    part.elements.insert(part.elements.begin(), std::make_move_iterator(report.elements.begin()),
                         std::make_move_iterator(report.elements.end()));
    report = std::move(part);
  }
  return report;
}

}  // namespace cli
