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
    : plugin_(plugin),
      session_(session),
      stages_(stages),
      options_(options),
      projector_(session.profile()),
      begin_(now()) {
  projector_.keep(tree.running(), tree.candidate());
}

std::chrono::steady_clock::time_point StepOracle::now() const {
  return options_.now ? options_.now() : std::chrono::steady_clock::now();
}

bool StepOracle::has_ended() {
  if (end_ != SearchEnd::complete) return true;
  if (calls_ >= options_.budget.calls) end_ = SearchEnd::calls;
  if (now() - begin_ >= options_.budget.time) end_ = SearchEnd::time;
  if (options_.is_interrupted && options_.is_interrupted()) end_ = SearchEnd::interrupted;
  return end_ != SearchEnd::complete;
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
  if (options_.progress) options_.progress(calls_, 0);
  ++calls_;
  try {
    const auto transaction = element::make_transaction(std::move(running), std::move(candidate), projector_);
    return host::validate_commit(plugin_, session_, *transaction, {.all_points = all_points});
  } catch (const host::ContractError &error) {
    end_ = SearchEnd::contract_violation;
    contract_violation_ = error.what();
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
