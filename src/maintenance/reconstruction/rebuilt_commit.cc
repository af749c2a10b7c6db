#include "maintenance/reconstruction/rebuilt_commit.h"

#include "element/datastore/transaction.h"
#include "host/run/triggered_points.h"
#include "maintenance/reconstruction/builder.h"

namespace reconstruction {

namespace {

/// The keys of the last entry on the way to the node, as they stand in a path's text.
std::string last_keys(const std::vector<recording::PathStep> &node) {
  for (auto step = node.rbegin(); step != node.rend(); ++step) {
    if (!step->keys.empty()) return step->keys.front();
  }
  return "";
}

/// Whether the commit fires the recorded point, and at a node of the recorded entry.
bool fires(const recording::Recording &recording, const std::vector<recording::PathStep> &node,
           const maintenance::Commit &commit) {
  const auto transaction = element::make_transaction(commit.running, commit.candidate, *commit.profile);
  for (const host::TriggeredPoint &triggered : host::triggered_points(*transaction)) {
    if (triggered.point != recording.header.point) continue;
    if (element::to_text(triggered.path()).find(last_keys(node)) != std::string::npos) return true;
  }
  return false;
}

}  // namespace

// The order matters: what was read of the candidate is in both configurations until changes are taken back.
RebuiltCommit rebuild_commit(const recording::Recording &recording, const element::Schema &schema) {
  const Facts facts = collect_facts(recording, schema);
  Builder builder(facts, schema);
  builder.put_rows();
  builder.put_leafs();
  builder.put_node();
  builder.fill_counts();
  builder.complete_pseudowires();
  builder.copy_to_running();
  builder.take_back_changes();
  builder.put_running_rows();
  RebuiltCommit rebuilt = builder.commit();
  if (fires(recording, facts.node, rebuilt.commit)) return rebuilt;
  builder.change_node();
  return builder.commit();
}

std::optional<host::PointVerdict> asked_about(const maintenance::Commit &commit, const recording::Recording &recording,
                                              const std::filesystem::path &plugin) {
  const auto transaction = element::make_transaction(commit.running, commit.candidate, *commit.profile);
  host::HostSession session(*commit.profile);
  const host::Plugin library(plugin);
  const host::Verdict verdict = host::validate_commit(library, session, *transaction, {.all_points = true});
  std::optional<host::PointVerdict> found;
  for (const host::PointVerdict &point : verdict.points) {
    if (point.point != recording.header.point) continue;
    if (!found || point.text == recording.trailer.message.value_or("")) found = point;
  }
  return found;
}

}  // namespace reconstruction
