#include "headroom/measure.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <utility>

#include "headroom/remainder.h"

namespace headroom {
namespace {

void append(std::vector<Fill> &fills, std::vector<Fill> more) {
  fills.insert(fills.end(), std::make_move_iterator(more.begin()), std::make_move_iterator(more.end()));
}

std::vector<Fill> all_fills(const Site &site) {
  std::vector<Fill> fills;
  fills.push_back(fill_of_vpns(site));
  fills.push_back(fill_of_pseudowires(site));
  append(fills, fills_of_access_interfaces(site));
  fills.push_back(fill_of_encapsulation_vlans(site));
  fills.push_back(fill_of_encapsulation_ranges(site));
  append(fills, fills_of_interface_ranges(site));
  append(fills, fills_of_bridge_mtu(site));
  return fills;
}

/// What is left according to the same limit of another VPN or interface; 0 where there is none to go by.
std::uint64_t suspected_left(const Fill &fill, const std::vector<Remainder> &found) {
  if (found.empty() || found.back().limit != fill.limit) return 0;
  const Remainder &other = found.back();
  const auto left = fill.used && other.allowed ? std::optional(*other.allowed - *fill.used) : other.left;
  return static_cast<std::uint64_t>(std::max<std::int64_t>(0, left.value_or(0)));
}

}  // namespace

Measurement measure(const host::Plugin &plugin, const Commit &commit, const Progress &progress) {
  const Site site(commit);
  const Judge judge(plugin, commit.running);
  const host::Verdict verdict = judge.decide(site.load(), false);

  Measurement measurement;
  measurement.decision = verdict.decision;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.answer != host::Answer::accepted) measurement.answers.push_back(answer_of(point));
  }
  const bool is_accepted = verdict.decision != host::Decision::rejected;
  const std::vector<Fill> fills = all_fills(site);
  for (const Fill &fill : fills) {
    const std::uint64_t suspected = suspected_left(fill, measurement.remainders);
    measurement.remainders.push_back(find_remainder(judge, fill, is_accepted, suspected));
    progress(measurement.remainders.size(), fills.size());
  }
  return measurement;
}

}  // namespace headroom
