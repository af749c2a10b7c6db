#include "cli/commands/map_command.h"

#include <fmt/format.h>

#include "cli/command_line/errors.h"
#include "cli/commands/search.h"
#include "cli/input/commit_input.h"
#include "cli/input/foreign_nodes.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/output_file.h"
#include "host/run/plugin.h"
#include "host/seam/host_session.h"
#include "report/escape/printable.h"
#include "report/findings.h"
#include "report/text/findings_text.h"
#include "report/unreadable_names.h"
#include "vlan_map/claims.h"
#include "vlan_map/conflicts.h"
#include "vlan_map/html.h"
#include "vlan_map/labels.h"
#include "vlan_map/places.h"
#include "vlan_map/svg.h"

namespace cli {
namespace {

using Writer = std::string (*)(const vlan_map::Map &);

Writer writer_for(const std::string &file) {
  const std::string ending = std::filesystem::path(file).extension();
  if (ending == ".svg") return vlan_map::to_svg;
  if (ending == ".html") return vlan_map::to_html;
  throw UsageError(fmt::format("-o: \"{}\" is no picture; expected a file that ends in .svg or .html", file));
}

vlan_map::Map map_of(const MapArguments &arguments, const CommitInput &input, const host::Verdict &verdict,
                     const diagnosis::Diagnosis &diagnosis) {
  report::CommitReport commit;
  report::add_findings(commit, diagnosis, verdict, input.schema(), input.files(), input.sources());
  const bool is_folder = arguments.input.candidate.empty();
  vlan_map::Map map;
  map.title = "VLANs by port: " + (is_folder ? arguments.input.directory : arguments.input.candidate);
  map.decision = verdict.decision;
  map.ports = vlan_map::find_claims(input.transaction(), input.profile());
  vlan_map::find_places(map.ports, input.files(), input.sources());
  map.conflicts = vlan_map::find_conflicts(commit.findings, map.ports);
  map.advice = advice_for_all_line(commit);
  map.complete = diagnosis.end == diagnosis::SearchEnd::complete;
  for (const report::UnreadableName &name : report::unreadable_names(verdict.unreadable)) {
    map.notices.push_back(to_text(name));
  }
  return map;
}

}  // namespace

ExitStatus map(const MapArguments &arguments, const Environment &environment) {
  const Writer to_picture = writer_for(arguments.output);
  // Found out before a search that may take a minute.
  { const OutputFile can_be_written(arguments.output); }

  const CommitInput input(find_input_files(arguments.input), read_options(arguments.input));
  tell_foreign_nodes(environment.err, arguments.input, input.sources());
  host::HostSession session(input.profile());
  const host::Plugin plugin(find_plugin_file(arguments.plugin, environment));
  const host::Verdict verdict = host::validate_commit(plugin, session, input.transaction());
  const diagnosis::Diagnosis diagnosis =
      find_faults({.all_findings = true, .budget = arguments.budget}, environment, input, plugin, session, verdict);
  const vlan_map::Map drawn = map_of(arguments, input, verdict, diagnosis);

  OutputFile file(arguments.output);
  file.write(to_picture(drawn));
  file.publish();
  if (!diagnosis.contract_violation.empty()) {
    environment.err << "vpnval: search stopped: " << report::printable(diagnosis.contract_violation) << '\n';
  }
  environment.out << fmt::format("{}: {}. {}\n", report::printable(arguments.output), count_text(drawn),
                                 verdict_text(drawn));
  for (const std::string &notice : drawn.notices) environment.out << notice << '\n';
  return ExitStatus::accepted;
}

}  // namespace cli
