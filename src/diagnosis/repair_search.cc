#include "diagnosis/repair_search.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "diagnosis/free_values.h"
#include "diagnosis/limit_search.h"
#include "element/datastore/lookup.h"
#include "element/profile/nearest_interfaces.h"

namespace diagnosis {
namespace {

using l2vpn::ClaimKind;
using l2vpn::PortClaim;
using l2vpn::VlanRange;

constexpr std::size_t kMostValues = 3;
constexpr std::size_t kMostParties = 8;
constexpr std::size_t kMostSetsBeside = 8;

std::string text_of(const VlanRange &vlans, ClaimKind kind) {
  return kind == ClaimKind::own_vlan ? fmt::to_string(vlans.first) : fmt::format("{}-{}", vlans.first, vlans.last);
}

/// A VLAN as its leaf or key holds it.
element::Value vlan_value(std::uint32_t vlan) { return static_cast<std::uint16_t>(vlan); }

bool can_move(const PortClaim &claim) { return claim.kind == ClaimKind::own_vlan || claim.kind == ClaimKind::range; }

/// Who takes a port whole may share it with who takes VLANs of it.
bool takes_vlans(const PortClaim &claim) { return can_move(claim) || claim.kind == ClaimKind::untagged; }

std::vector<std::string> ports_of(const l2vpn::Vpn &vpn) {
  std::vector<std::string> ports;
  for (const l2vpn::Attachment &attachment : vpn.attachments) ports.push_back(attachment.interface);
  return ports;
}

}  // namespace

RepairSearch::RepairSearch(const SearchContext &context, const FoundConflicts &conflicts,
                           const std::vector<ConflictGroup> &groups, const element::Profile &profile)
    : context_(context),
      conflicts_(conflicts),
      groups_(groups),
      profile_(profile),
      users_(context.entries, context.changes) {
  for (const FoundConflict &conflict : conflicts) messages_.push_back(conflict.message);
  normalise(messages_);
}

std::vector<Repair> RepairSearch::for_group(std::size_t group) {
  group_ = group;
  entries_.clear();
  own_messages_.clear();
  seen_.clear();
  repairs_.clear();
  NumberSet parties;
  for (const std::size_t conflict : groups_[group]) {
    entries_ = united(entries_, conflicts_[conflict].entries);
    parties = united(parties, conflicts_[conflict].parties);
    own_messages_.push_back(conflicts_[conflict].message);
  }
  normalise(own_messages_);
  std::erase_if(parties, [this](std::uint32_t party) { return context_.entries.node(party).after == nullptr; });
  if (parties.size() > kMostParties) parties.resize(kMostParties);
  for (const std::uint32_t party : parties) {
    const std::string &kind = context_.entries.node(party).schema->name;
    if (kind == l2vpn::name::access_interface) {
      add_names(party);
      add_vlans(party);
    } else if (kind == l2vpn::name::neighbor || kind == l2vpn::name::backup_neighbor) {
      add_pw_ids(party);
    } else if (is_static_member(context_.entries.tree().path_of(context_.entries[party].node))) {
      add_member_vlans(party);
    }
  }
  return std::move(repairs_);
}

void RepairSearch::add_vlans(std::uint32_t party) {
  const l2vpn::Vpn *vpn = users_.vpn_around(party);
  const std::string port = element::to_text(context_.entries.node(party).node().keys.front());
  const l2vpn::Attachment *attachment = vpn == nullptr ? nullptr : vpn->find_attachment(port);
  if (attachment == nullptr) return;
  for (const PortClaim &claim : l2vpn::claims_of(*vpn, *attachment)) {
    if (can_move(claim) && is_shared(claim)) add_vlans(*vpn, claim);
  }
}

/// Others take VLANs of the claim, too.
bool RepairSearch::is_shared(const PortClaim &claim) {
  const std::vector<PortClaim> &others = users_.claims_on(claim.port);
  return std::any_of(others.begin(), others.end(), [&claim](const PortClaim &other) {
    const bool is_own = other.path == claim.path && other.source == claim.source;
    return !is_own && takes_vlans(other) && overlap(other, claim);
  });
}

// What matters to the member in the other VLAN: an uplink there.
void RepairSearch::add_member_vlans(std::uint32_t party) {
  Repair repair;
  repair.kind = RepairKind::free_vlans;
  repair.path = context_.entries.tree().path_of(context_.entries[party].node);
  const std::string path = to_text(repair.path);
  const std::vector<PortClaim> &claims = users_.claims_on(element::to_text(repair.path.back().keys.front()));
  const auto own = std::find_if(claims.begin(), claims.end(), [&path](const PortClaim &claim) {
    return claim.claimant == l2vpn::Claimant::static_member && claim.path == path;
  });
  if (own == claims.end() || !is_shared(*own)) return;
  std::vector<Proposal> proposals;
  for (const VlanRange &vlans : nearest_free_vlans(own->vlans, taken_on({own->port}), kMostValues)) {
    proposals.push_back({{vlan_value(vlans.first)}, text_of(vlans, own->kind), users_.uplinks_in(vlans.first)});
  }
  add(std::move(repair), proposals);
}

// A VLAN that is free on every port of the VPN may be moved on all of them. The VLAN of a bridge domain must be.
void RepairSearch::add_vlans(const l2vpn::Vpn &vpn, const PortClaim &claim) {
  const bool is_of_all_ports = vpn.key.family == l2vpn::Family::vpls && claim.kind == ClaimKind::own_vlan;
  const std::vector<std::string> ports = ports_of(vpn);
  std::vector<VlanRange> free = nearest_free_vlans(claim.vlans, taken_on(ports), kMostValues);
  const bool is_free_on_all = !free.empty() && ports.size() > 1;
  if (free.empty() && !is_of_all_ports) {
    free = nearest_free_vlans(claim.vlans, taken_on({claim.port}), kMostValues);
  }
  Repair repair;
  repair.kind = RepairKind::free_vlans;
  repair.path = element::parse_path(context_.entries.tree().schema(), claim.source);
  repair.on_all_ports = is_free_on_all;
  std::vector<Proposal> proposals;
  for (const VlanRange &vlans : free) {
    Proposal &proposal = proposals.emplace_back();
    proposal.values.push_back(vlan_value(vlans.first));
    if (claim.kind == ClaimKind::range) proposal.values.push_back(vlan_value(vlans.last));
    proposal.text = text_of(vlans, claim.kind);
  }
  add(std::move(repair), proposals);
}

std::vector<VlanRange> RepairSearch::taken_on(const std::vector<std::string> &ports) {
  std::vector<VlanRange> taken;
  for (const std::string &port : ports) {
    for (const PortClaim &claim : users_.claims_on(port)) {
      if (takes_vlans(claim)) taken.push_back(claim.vlans);
    }
  }
  return taken;
}

void RepairSearch::add_pw_ids(std::uint32_t party) {
  const MergedNode &node = context_.entries.node(party);
  const element::Node *leaf = element::find_below(node.after, {l2vpn::name::pw_id});
  if (leaf == nullptr) return;
  const std::uint32_t pw_id = element::number(leaf->value).value_or(0);
  const PwIds &ids = users_.pw_ids_towards(element::to_text(node.node().keys.front()));
  if (ids.candidate.count(pw_id) < 2 && ids.running.count(pw_id) == 0) return;
  std::set<std::uint32_t> taken = ids.running;
  taken.insert(ids.candidate.begin(), ids.candidate.end());
  Repair repair;
  repair.kind = RepairKind::free_pw_ids;
  repair.path = context_.entries.tree().path_of(context_.entries[party].node);
  repair.path.push_back({leaf->schema, {}});
  std::vector<Proposal> proposals;
  for (const std::uint32_t free : nearest_free_numbers(pw_id, taken, kMostValues)) {
    proposals.push_back({{free}, fmt::to_string(free), {}});
  }
  add(std::move(repair), proposals);
}

void RepairSearch::add_names(std::uint32_t party) {
  const MergedNode &node = context_.entries.node(party);
  const std::string name = element::to_text(node.node().keys.front());
  const l2vpn::Vpn *vpn = users_.vpn_around(party);
  if (node.before != nullptr || vpn == nullptr || profile_.by_name(name) != nullptr) return;
  Repair repair;
  repair.kind = RepairKind::interface_name;
  repair.path = context_.entries.tree().path_of(context_.entries[party].node);
  std::vector<Proposal> proposals;
  for (const std::string &near : element::nearest_interfaces(name, profile_, kMostValues)) {
    if (vpn->find_attachment(near) == nullptr) proposals.push_back({{near}, near, users_.entries_on(near)});
  }
  add(std::move(repair), proposals);
}

/// Where the first value does not make the message go, no other one is asked about.
void RepairSearch::add(Repair repair, const std::vector<Proposal> &proposals) {
  const std::string path = to_text(repair.path);
  if (!seen_.insert(path).second || !is_touched(path)) return;
  for (const Proposal &proposal : proposals) {
    const CandidateEdit edit{repair.path, proposal.values};
    if (&proposal == &proposals.front() && !is_gone(entries_, own_messages_, edit)) return;
    if (helps(edit, proposal.newly_near)) repair.values.push_back(proposal.text);
  }
  if (!repair.values.empty()) repairs_.push_back(std::move(repair));
}

bool RepairSearch::is_touched(const std::string &path) const {
  const element::Node *before = context_.entries.tree().running().find(path);
  const element::Node *after = context_.entries.tree().candidate().find(path);
  return after != nullptr && (before == nullptr || !(before->value == after->value));
}

bool RepairSearch::helps(const CandidateEdit &edit, const NumberSet &newly_near) {
  for (const NumberSet &entries : surroundings(edit, newly_near)) {
    const std::optional<NumberSet> answer = ask(entries, edit);
    if (!answer || !answer->empty()) return false;
  }
  if (!newly_near.empty() && !brings_nothing_new(context_.entries.closure(united(entries_, newly_near)), edit)) {
    return false;
  }
  return context_.locality != nullptr || brings_nothing_new(context_.entries.all(), edit);
}

bool RepairSearch::brings_nothing_new(const NumberSet &entries, const CandidateEdit &edit) {
  const std::optional<NumberSet> answer = ask(entries, edit);
  return answer && is_subset(*answer, minus(messages_, own_messages_));
}

bool RepairSearch::is_gone(const NumberSet &entries, const NumberSet &messages, const CandidateEdit &edit) {
  const std::optional<NumberSet> answer = ask(entries, edit);
  return answer && intersection(*answer, messages).empty();
}

// What is near without the parties of other findings, and with some of these that agree with each other.
std::vector<NumberSet> RepairSearch::surroundings(const CandidateEdit &edit, const NumberSet &newly_near) {
  const NumberSet own = context_.entries.innermost(entries_);
  const NumberSet scope = context_.scope(united(entries_, newly_near));
  NumberSet others;
  std::vector<Bound> bounds;
  for (std::size_t group = 0; group < groups_.size(); ++group) {
    if (group == group_) continue;
    for (const std::size_t i : groups_[group]) {
      const FoundConflict &conflict = conflicts_[i];
      if (intersection(conflict.parties, scope).empty()) continue;
      // The edit may make other conflicts of its entry go, too.
      const bool is_near = !intersection(conflict.parties, own).empty();
      if (is_near && is_gone(conflict.entries, {conflict.message}, edit)) continue;
      bounds.push_back(within(bound_of(context_, conflict), scope));
      others = united(others, bounds.back().parties);
    }
  }
  others = minus(others, own);
  std::vector<NumberSet> result;
  for (const NumberSet &beside : independent_sets(bounds, own, kMostSetsBeside).sets) {
    const NumberSet rest = context_.entries.without(scope, minus(others, beside));
    result.push_back(context_.entries.closure(united(rest, entries_)));
  }
  return result;
}

std::optional<NumberSet> RepairSearch::ask(const NumberSet &entries, const CandidateEdit &edit) {
  const RestrictedCommit commit{entries, {}};
  element::Tree candidate = candidate_tree(commit, context_.entries, context_.changes);
  apply(edit, candidate);
  return context_.oracle.ask(running_tree(commit, context_.entries, context_.changes), std::move(candidate));
}

}  // namespace diagnosis
