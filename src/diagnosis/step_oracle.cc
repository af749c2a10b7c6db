#include "diagnosis/step_oracle.h"

#include <utility>

#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "element/output/configuration_writer.h"

namespace diagnosis {
namespace {

// A larger question costs more to keep than it is likely to save.
constexpr std::size_t kLargestKeptStage = 128;

}  // namespace

StepOracle::StepOracle(const host::Plugin &plugin, host::HostSession &session, const MergedTree &tree,
                       const Stages &stages, const Options &options)
    : plugin_(plugin), session_(session), stages_(stages), projector_(session.profile()), budget_(options) {
  projector_.keep(tree.running(), tree.candidate());
}

bool StepOracle::accepts(const Stage &from, const Stage &to) {
  if (!is_step(from, to)) return false;
  const auto known = known_.find({from, to});
  if (known != known_.end()) return known->second;
  element::Tree candidate = stages_.tree(to);
  const std::optional<host::Verdict> verdict = ask(stages_.tree(from), candidate, false);
  if (!verdict) return false;
  const bool is_accepted = verdict->decision != host::Decision::rejected && is_readable(candidate);
  if (from.size() <= kLargestKeptStage) known_.emplace(std::pair(from, to), is_accepted);
  return is_accepted;
}

std::optional<host::Verdict> StepOracle::ask_on_nothing(const element::Tree &configuration) {
  return ask(element::Tree(configuration.schema()), configuration, true);
}

std::optional<host::Verdict> StepOracle::ask(element::Tree running, element::Tree candidate, bool all_points) {
  if (has_ended()) return std::nullopt;
  budget_.start_call();
  try {
    const auto transaction = element::make_transaction(std::move(running), std::move(candidate), projector_);
    return host::validate_commit(plugin_, session_, *transaction, {.all_points = all_points});
  } catch (const host::ContractError &error) {
    budget_.end_with_violation(error.what());
    return std::nullopt;
  }
}

bool StepOracle::is_readable(const element::Tree &configuration) {
  try {
    const std::string text = write_configuration(configuration, element::InputFormat::xml);
    element::parse_configuration(configuration.schema(), text, "step");
    return true;
  } catch (const element::InputError &) {
    return false;
  }
}

}  // namespace diagnosis
