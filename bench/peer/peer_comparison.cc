// Two rules that a YANG author would write into the data model, decided by libyang and by the plug-in over the same
// data in the same run, as a Markdown table. What the plug-in is timed with is its whole validation point, all its
// reads in the virtual element included: the other rules of the point, too.

#include <fmt/format.h>

#include <algorithm>
#include <cstdio>
#include <exception>
#include <stdexcept>
#include <vector>

#include "bench/asked_point.h"
#include "bench/cpu_time.h"
#include "bench/peer/entries.h"
#include "bench/peer/yang_rules.h"
#include "bench/point_commits.h"

namespace {

constexpr int kRepeats = 9;

template <typename Measure>
double median(int repeats, Measure measure) {
  std::vector<double> seconds;
  for (int i = 0; i < repeats; ++i) seconds.push_back(measure());
  std::nth_element(seconds.begin(), seconds.begin() + repeats / 2, seconds.end());
  return seconds[static_cast<std::size_t>(repeats / 2)];
}

double seconds_of_plugin(const bench::PointCommit &commit) {
  host::HostSession session(commit.profile);
  const host::Plugin plugin(PLUGIN_FILE);
  bench::AskedPoint point(commit, plugin, session);
  return median(kRepeats, [&point] { return bench::cpu_seconds_of([&point] { point.validate(); }); });
}

struct Rule {
  const char *name;
  const char *must;    ///< container of the module peer-rules
  const char *unique;  ///< another
  bench::PointCommitKind kind;
};

constexpr Rule kVlanRule{"no two VPNs share a VLAN of one interface", "vlan-by-must", "vlan-by-unique",
                         bench::PointCommitKind::access_few_ports};
constexpr Rule kPwIdRule{"pw-id unique per neighbour", "pw-id-by-must", "pw-id-by-unique",
                         bench::PointCommitKind::peer};

/// A comparison in which a rule tells nothing is worth nothing: with its first entry said twice, under another VPN, the
/// data must be refused.
template <typename Entry>
void require_rule(const bench::YangRules &yang, const char *container, std::vector<Entry> entries) {
  entries.resize(std::min<std::size_t>(entries.size(), 10));
  if (!yang.is_valid(xml_text(container, entries))) throw std::logic_error(fmt::format("{} refuses all", container));
  entries.push_back(entries.front());
  entries.back().vpn = "another";
  if (yang.is_valid(xml_text(container, entries))) throw std::logic_error(fmt::format("{} refuses nothing", container));
}

template <typename Entry>
void print_row(const bench::YangRules &yang, const Rule &rule, const bench::PointCommit &commit,
               const std::vector<Entry> &entries) {
  require_rule(yang, rule.must, entries);
  require_rule(yang, rule.unique, entries);
  const double must = yang.seconds_to_validate(xml_text(rule.must, entries));
  const std::string unique_xml = xml_text(rule.unique, entries);
  const double unique = median(kRepeats, [&] { return yang.seconds_to_validate(unique_xml); });
  const double plugin = seconds_of_plugin(commit);
  fmt::print("| {} | {} | {:.0f} ms | {:.1f} ms | {:.1f} ms | {:.1f} | {:.2f} |\n", rule.name, entries.size(),
             must * 1e3, unique * 1e3, plugin * 1e3, must / plugin, unique / plugin);
  std::fflush(stdout);
}

void compare(const element::Schema &schema, const bench::YangRules &yang, std::size_t size) {
  const bench::PointCommit access = make_point_commit(schema, kVlanRule.kind, size);
  print_row(yang, kVlanRule, access, bench::attachments(access.transaction->candidate));
  const bench::PointCommit peer = make_point_commit(schema, kPwIdRule.kind, size);
  print_row(yang, kPwIdRule, peer, bench::pseudowires(peer.transaction->candidate));
}

void print_table() {
  const element::Schema schema;
  const bench::YangRules yang;
  fmt::print("| Rule | Entries | `must` | `unique` | the plug-in's point | `must` / plug-in | `unique` / plug-in |\n");
  fmt::print("|---|---:|---:|---:|---:|---:|---:|\n");
  for (const std::size_t size : {512U, 1024U, 2048U, 4096U}) compare(schema, yang, size);
}

}  // namespace

int main() {
  try {
    print_table();
  } catch (const std::exception &error) {
    fmt::print(stderr, "peer_comparison: {}\n", error.what());
    return 1;
  }
  return 0;
}
