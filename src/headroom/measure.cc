#include "headroom/measure.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "headroom/limit_usage.h"

namespace headroom {
namespace {

void append(std::vector<LimitProbe> &probes, std::vector<LimitProbe> more) {
  probes.insert(probes.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<LimitProbe> all_probes(const CommitContext &context) {
  std::vector<LimitProbe> probes;
  probes.push_back(probe_vpns(context));
  probes.push_back(probe_pseudowires(context));
  append(probes, probe_access_interfaces(context));
  probes.push_back(probe_encapsulation_vlans(context));
  probes.push_back(probe_encapsulation_ranges(context));
  append(probes, probe_interface_ranges(context));
  append(probes, probe_bridge_mtu(context));
  return probes;
}

/// What is probably left, judging by the same limit of the VPN or interface before; 0 if there is none.
std::uint64_t expected_left(const LimitProbe &probe, const std::vector<LimitUsage> &found) {
  if (found.empty() || found.back().limit != probe.limit) return 0;
  const LimitUsage &other = found.back();
  const auto left = probe.used && other.allowed ? std::optional(*other.allowed - *probe.used) : other.left;
  return static_cast<std::uint64_t>(std::max<std::int64_t>(0, left.value_or(0)));
}

}  // namespace

Measurement measure(const host::Plugin &plugin, const Commit &commit, const Progress &progress) {
  const CommitContext context(commit);
  Measurement measurement;
  const Validator validator(plugin, commit.running, measurement.unreadable);
  const host::Verdict verdict = validator.decide(context.trial(), false);

  measurement.decision = verdict.decision;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer != host::Answer::accepted) measurement.answers.push_back(answer_of(point));
  }
  const bool is_accepted = verdict.decision != host::Decision::rejected;
  const std::vector<LimitProbe> probes = all_probes(context);
  for (const LimitProbe &probe : probes) {
    const std::uint64_t expected = expected_left(probe, measurement.usages);
    measurement.usages.push_back(find_usage(validator, probe, is_accepted, expected));
    progress(measurement.usages.size(), probes.size());
  }
  return measurement;
}

}  // namespace headroom
