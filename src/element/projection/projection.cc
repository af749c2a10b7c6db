#include "element/projection/projection.h"

#include <array>
#include <utility>

#include "element/datastore/lookup.h"
#include "element/projection/kept_vpns.h"
#include "element/projection/projection_tables.h"

namespace element {
namespace {

/// Appends to a derived tree what a family's VPNs derive to.
class FamilyTables {
 public:
  FamilyTables(const VpnFamily &family, Tree &derived) : family_(family) {
    for (std::size_t i = 0; i < family.tables.size(); ++i) lists_[i] = &derived.put(family.tables[i].path);
    groups_ = &derived.put(family.group_table);
  }

  void add_group(const Value &name) { vpns_ = &child_named(append_entry(*groups_, {name}), family_.vpn_list); }

  /// A VPN of the group that was added last.
  void add(const VpnRows &rows) {
    vpns_->children.append_shared(rows.below_group);
    for (std::size_t i = 0; i < lists_.size(); ++i) lists_[i]->children.append_shared(rows.tables[i]);
  }

  VpnRows derive(const Vpn &vpn) const {
    VpnRows rows;
    rows.below_group = derive_row(*vpns_->schema, family_.derive_vpn, vpn);
    for (std::size_t i = 0; i < lists_.size(); ++i) {
      rows.tables[i] = derive_row(*lists_[i]->schema, family_.tables[i].derive, vpn);
    }
    return rows;
  }

 private:
  static Nodes derive_row(const SchemaNode &list_schema, void (*derive_entries)(Node &, const Vpn &), const Vpn &vpn) {
    Node list{&list_schema, {}, {}, {}};
    derive_entries(list, vpn);
    return std::move(list.children);
  }

  const VpnFamily &family_;
  std::array<Node *, std::tuple_size_v<decltype(VpnFamily::tables)>> lists_{};
  Node *groups_ = nullptr;
  Node *vpns_ = nullptr;
};

/// Calls `visit` with each VPN of a family, the list that holds it and its place there, after `on_group` for its group.
template <typename OnGroup, typename Visit>
void for_each_vpn(const Tree &configuration, const VpnFamily &family, IdentifierSpace &identifiers, OnGroup on_group,
                  Visit visit) {
  const Node *groups = configuration.find(family.groups);
  if (groups == nullptr) return;
  for (const Node &group : groups->children) {
    const Value &group_name = group.keys.front();
    on_group(group_name);
    const Nodes &vpns = entries_below(&group, {"vpn"});
    for (std::size_t i = 0; i < vpns.size(); ++i) {
      const Value &name = vpns[i].keys.front();
      visit(Vpn{&group_name, &name, identifiers.of({to_text(group_name), to_text(name)}), &vpns[i]}, vpns, i);
    }
  }
}

void project_family(Tree &derived, const Tree &configuration, const VpnFamily &family, IdentifierSpace &identifiers,
                    const KeptVpns &kept) {
  FamilyTables tables(family, derived);
  for_each_vpn(
      configuration, family, identifiers, [&](const Value &group) { tables.add_group(group); },
      [&](const Vpn &vpn, const Nodes &, std::size_t) {
        const VpnRows *rows = kept.find(*vpn.entry);
        tables.add(rows != nullptr ? *rows : tables.derive(vpn));
      });
}

void keep_family(const Tree &configuration, const VpnFamily &family, IdentifierSpace &identifiers, KeptVpns &kept) {
  Tree scratch(configuration.schema());
  FamilyTables tables(family, scratch);
  for_each_vpn(
      configuration, family, identifiers, [&](const Value &group) { tables.add_group(group); },
      [&](const Vpn &vpn, const Nodes &vpns, std::size_t place) {
        if (kept.find(*vpn.entry) == nullptr) kept.add(vpns, place, tables.derive(vpn));
      });
}

}  // namespace

Projector::Projector(const Profile &profile)
    : profile_(profile), identifiers_(std::make_unique<Identifiers>()), kept_(std::make_unique<KeptVpns>()) {}

Projector::~Projector() = default;

void Projector::project(Tree &configuration) {
  // A tree of its own, so that what is read stays in its place while entries are added.
  Tree derived(configuration.schema());
  project_family(derived, configuration, vpls_family, identifiers_->vpls, *kept_);
  project_family(derived, configuration, vpws_family, identifiers_->vpws, *kept_);
  derive_ldp_interfaces(derived, configuration, identifiers_->layer3);
  derive_static_member_table(derived, configuration, profile_);
  derive_snooping_table(derived, configuration, profile_);

  for (const VpnFamily *family : {&vpls_family, &vpws_family}) {
    for (const VpnTable &table : family->tables) derived.sort_list(table.path);
  }
  for (const char *table : {ldp_interface_table, static_member_table, snooping_table}) derived.sort_list(table);
  configuration.root().children.append_shared(std::as_const(derived).root().children);
  configuration.root().children.sort(
      [](const Node &a, const Node &b) { return a.schema->position < b.schema->position; });
}

void Projector::keep(const Tree &configuration) {
  keep_family(configuration, vpls_family, identifiers_->vpls, *kept_);
  keep_family(configuration, vpws_family, identifiers_->vpws, *kept_);
}

}  // namespace element
