#include "element/projection/projection.h"

#include <array>
#include <utility>

#include "element/datastore/lookup.h"
#include "element/projection/kept_family.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

/// Derives one family's entries of a configuration, and shares those that are kept.
class FamilyProjection {
 public:
  FamilyProjection(const VpnFamily &family, IdentifierSpace &identifiers, const KeptFamily *kept, Tree &derived)
      : family_(family), identifiers_(identifiers), kept_(kept), groups_(derived.put(family.group_table)) {
    for (std::size_t i = 0; i < family.tables.size(); ++i) lists_[i] = &derived.put(family.tables[i].path);
  }

  void run(const Tree &configuration) {
    const Node *groups = configuration.find(family_.groups);
    if (groups != nullptr) {
      for (const Node &group : groups->children) add_group(group);
    }
    for (std::size_t i = 0; i < lists_.size(); ++i) {
      const bool is_in_order = kept_ == nullptr || kept_->rows(i).append(selected_, lists_[i]->children);
      if (!is_in_order || has_derived_) {
        lists_[i]->children.sort([](const Node &a, const Node &b) { return compare_keys(a.keys, b.keys) < 0; });
      }
    }
  }

 private:
  void add_group(const Node &group) {
    const KeptFamily::Group *known = kept_ == nullptr ? nullptr : kept_->find_group(group);
    if (known != nullptr) {
      groups_.children.push_back_shared(kept_->group_rows(), known->row);
      selected_.add(known->vpns);
      return;
    }
    Node &vpns = child_named(append_entry(groups_, {group.keys.front()}), family_.vpn_list);
    for (const Node &vpn : entries_below(&group, {"vpn"})) {
      const auto number = kept_ == nullptr ? std::nullopt : kept_->find_vpn(vpn, next_);
      if (number) {
        share(*number, vpns);
      } else {
        derive(group, vpn, vpns);
      }
    }
  }

  void share(std::uint32_t number, Node &vpns) {
    kept_->vpn_rows().append(number, vpns.children);
    selected_.add({number, number + 1});
    next_ = number + 1;
  }

  void derive(const Node &group, const Node &entry, Node &vpns) {
    const Value &group_name = group.keys.front();
    const Value &name = entry.keys.front();
    const Vpn vpn{&group_name, &name, identifiers_.of({to_text(group_name), to_text(name)}), &entry};
    family_.derive_vpn(vpns, vpn);
    for (std::size_t i = 0; i < lists_.size(); ++i) family_.tables[i].derive(*lists_[i], vpn);
    has_derived_ = true;
  }

  const VpnFamily &family_;
  IdentifierSpace &identifiers_;
  const KeptFamily *kept_;
  Node &groups_;
  std::array<Node *, std::tuple_size_v<decltype(VpnFamily::tables)>> lists_{};
  VpnSelection selected_;
  std::uint32_t next_ = 0;  ///< the kept VPN that is likely to come next
  bool has_derived_ = false;
};

}  // namespace

Projector::Projector(const Profile &profile) : profile_(profile), identifiers_(std::make_unique<Identifiers>()) {}

Projector::~Projector() = default;

void Projector::project(Tree &configuration) {
  // A tree of its own, so that what is read stays in its place while entries are added.
  Tree derived(configuration.schema());
  FamilyProjection(vpls_family, identifiers_->vpls, kept_vpls_.get(), derived).run(configuration);
  FamilyProjection(vpws_family, identifiers_->vpws, kept_vpws_.get(), derived).run(configuration);
  derive_ldp_interfaces(derived, configuration, identifiers_->layer3);
  derive_static_member_table(derived, configuration, profile_);
  derive_snooping_table(derived, configuration, profile_);

  for (const char *table : {ldp_interface_table, static_member_table, snooping_table}) derived.sort_list(table);
  configuration.root().children.append_shared(std::as_const(derived).root().children);
  configuration.root().children.sort(
      [](const Node &a, const Node &b) { return a.schema->position < b.schema->position; });
}

void Projector::keep(const Tree &running, const Tree &candidate) {
  kept_vpls_ = std::make_unique<KeptFamily>(vpls_family, running, candidate, identifiers_->vpls);
  kept_vpws_ = std::make_unique<KeptFamily>(vpws_family, running, candidate, identifiers_->vpws);
}

}  // namespace element
