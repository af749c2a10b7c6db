#include "cli/commands/headroom_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <filesystem>
#include <utility>

#include "cli/input/headroom_inputs.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/progress.h"
#include "cli/workers/headroom_workers.h"
#include "headroom/measure.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/json/headroom_json.h"
#include "report/text/headroom_text.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

host::Plugin load(const fs::path &file, const element::Profile &card) {
  const host::HostSession session(card);
  return host::Plugin(file);
}

report::HeadroomReport measure_here(const HeadroomInputs &inputs, const fs::path &plugin_file,
                                    const Environment &environment) {
  const fs::path &file = inputs.elements.front();
  const element::Schema schema;
  auto [running, candidate] = read_configurations(schema, inputs, environment.err);
  const headroom::Commit commit{std::move(running), std::move(candidate), element::read_profile(file)};
  const host::Plugin plugin = load(plugin_file, commit.profile);
  Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  const auto tell = [&progress](std::size_t done, std::size_t total) {
    progress.update([=] { return fmt::format("{} of {} limits measured", done, total); });
  };
  const headroom::Measurement measurement = headroom::measure(plugin, commit, tell);
  return {inputs.running.string(),
          inputs.candidate.string(),
          plugin.file().string(),
          plugin.build_id(),
          {{file.string(), measurement, report::unreadable_names(measurement.unreadable)}}};
}

report::HeadroomReport measure(const HeadroomInputs &inputs, const fs::path &plugin_file,
                               const Environment &environment) {
  if (inputs.elements.size() == 1) return measure_here(inputs, plugin_file, environment);
  return measure_in_workers(inputs, plugin_file, environment);
}

ExitStatus status_of(const report::HeadroomReport &report) {
  const bool is_rejected = std::any_of(
      report.elements.begin(), report.elements.end(),
      [](const report::ElementHeadroom &element) { return element.measurement.decision == host::Decision::rejected; });
  return is_rejected ? ExitStatus::rejected : ExitStatus::accepted;
}

}  // namespace

ExitStatus headroom(const HeadroomArguments &arguments, const Environment &environment) {
  const HeadroomInputs inputs = find_headroom_inputs(arguments);
  const report::HeadroomReport report = measure(inputs, find_plugin_file(arguments.plugin, environment), environment);
  const auto write = arguments.format == TableFormat::json ? report::write_headroom_json : report::write_headroom_text;
  write(environment.out, report);
  return status_of(report);
}

}  // namespace cli
