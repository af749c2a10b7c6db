#ifndef MAINTENANCE_RECONSTRUCTION_BUILDER_H
#define MAINTENANCE_RECONSTRUCTION_BUILDER_H

#include <map>
#include <optional>
#include <string>
#include <vector>

#include "element/datastore/tree.h"
#include "l2vpn/configuration.h"
#include "maintenance/reconstruction/facts.h"
#include "maintenance/reconstruction/interfaces.h"
#include "maintenance/reconstruction/rebuilt_commit.h"

namespace reconstruction {

/// Puts a commit together from facts, step by step; rebuild_commit() has the order.
class Builder {
 public:
  Builder(Facts facts, const element::Schema &schema);

  /// What was read of lists and objects, and of leafs by their path.
  void put_rows();
  void put_leafs();
  /// What stands around the node under validation, and the node.
  void put_node();
  /// Lists of which only the number of entries was asked.
  void fill_counts();

  /// Neighbours without a pw-id, which no operator can commit, get one.
  void complete_pseudowires();

  void copy_to_running();
  void take_back_changes();
  void put_running_rows();
  /// Has the node under validation be created, for a point that would not fire otherwise.
  void change_node();

  RebuiltCommit commit() const;

 private:
  using Values = std::vector<recording::AgentValue>;
  using Steps = std::vector<recording::PathStep>;

  static void put_group(element::Tree &tree, l2vpn::Family family, const std::string &group);
  void put_row(element::Tree &tree, const Row &row);
  void put_attachment(element::Tree &tree, const l2vpn::VpnKey &vpn, const l2vpn::Attachment &attachment);
  void put_pseudowire(element::Tree &tree, const l2vpn::VpnKey &vpn, const Values &row);
  void put_member(element::Tree &tree, const Values &row);
  void put_uplink(element::Tree &tree, const Values &row);
  void put_range(const Steps &path, const Values &row);
  void put_bridge_domain(const Steps &path, const Values &row);
  void put_leaf(const Leaf &leaf);
  void put_operator_leaf(const Steps &path);

  void fill_vpns(l2vpn::Family family, std::int64_t count);
  void fill_pseudowires(std::int64_t count);
  void fill_attachments(const l2vpn::VpnKey &vpn, std::int64_t count);

  void take_back(const Change &change);
  void take_back_in_vpn(const Change &change, const l2vpn::VpnKey &vpn);
  void take_back_in_attachment(const l2vpn::VpnKey &vpn, const std::string &interface);
  void take_back_leaf(const Change &change, const l2vpn::VpnKey &vpn);
  void remove_member();
  void take_back_member(const Change &change);
  void take_back_derived(const Change &change);

  Facts facts_;
  Interfaces interfaces_;
  element::Tree candidate_;
  element::Tree running_;
  std::vector<std::string> made_up_;
};

/// The VPN that a path of operator's nodes, or of derived ones, leads through.
std::optional<l2vpn::VpnKey> vpn_of(const std::vector<recording::PathStep> &path);

/// The keys of the step of this name, or null.
const std::vector<std::string> *keys_of(const std::vector<recording::PathStep> &path, std::string_view name);

}  // namespace reconstruction

#endif
