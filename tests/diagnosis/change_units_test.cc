#include "diagnosis/change_units.h"

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <memory>
#include <set>

#include "diagnosis/configuration_items.h"
#include "element/input/configuration.h"
#include "tests/element/drawn_configuration.h"
#include "tests/element/print.h"
#include "tests/element/written_configuration.h"

namespace {

using diagnosis::ChangeUnits;
using diagnosis::ConfigurationItems;
using diagnosis::ItemSet;
using diagnosis::Places;
using diagnosis::Shape;
using diagnosis::Shapes;
using element::Tree;

const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group{campus}";
const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{branches}";
const std::string south_access = vpws + "/vpn{south}/access-interface{eth0}";

element::Profile four_interfaces() {
  return element::Profile({}, {{"eth0", 1, 1000}, {"eth1", 2, 1001}, {"eth2", 3, 1002}, {"eth3", 4, 1003}});
}

/// A commit cut into units.
struct Cut {
  Cut(const Lines &running, const Lines &candidate)
      : transaction(element::make_transaction(tree_of(running), tree_of(candidate), four_interfaces())) {}

  /// A unit a line, "PATH" or "PATH needs PATH PATH".
  Lines units_and_needs() const {
    Lines lines;
    for (std::size_t unit = 0; unit < units.size(); ++unit) {
      std::string line = path_of(unit);
      const auto &needs = units.items()[unit].needs;
      if (!needs.empty()) line += " needs";
      for (const std::size_t needed : needs) line += " " + path_of(needed);
      lines.push_back(line);
    }
    return lines;
  }

  std::string path_of(std::size_t unit) const { return to_text(places.path_of(units.place(unit))); }

  std::unique_ptr<element::Transaction> transaction;
  Places places{*transaction};
  ChangeUnits units{places};
};

TEST(ChangeUnits, nothing_changed_has_no_units) {
  const Lines lines{south_access + "/dot1q = 100"};
  EXPECT_EQ(Cut(lines, lines).units_and_needs(), Lines{});
}

TEST(ChangeUnits, an_added_entry_comes_with_its_leafs_and_needs_the_added_entries_around_it) {
  const Cut cut({}, {south_access + "/dot1q = 100", south_access + "/encapsulation/dot1q-range{300 310}"});
  EXPECT_EQ(cut.units_and_needs(),
            (Lines{vpws, vpws + "/vpn{south} needs " + vpws, south_access + " needs " + vpws + "/vpn{south}",
                   south_access + "/encapsulation/dot1q-range{300 310} needs " + south_access}));
}

TEST(ChangeUnits, a_removed_entry_goes_with_all_it_held) {
  const Cut cut({south_access + "/dot1q = 100", vpws + "/vpn{north}"}, {vpws + "/vpn{north}"});
  EXPECT_EQ(cut.units_and_needs(), (Lines{vpws + "/vpn{south}"}));
}

TEST(ChangeUnits, leafs_of_an_entry_that_stays_are_units) {
  const std::string bridge_domain = vpls + "/vpn{data}/bridge-domain";
  const Cut cut({bridge_domain + "/dot1q = 210", bridge_domain + "/bridge-mtu = 1500"},
                {bridge_domain + "/dot1q = 220", bridge_domain + "/transparent-lan-service"});
  EXPECT_EQ(cut.units_and_needs(), (Lines{bridge_domain + "/dot1q", bridge_domain + "/bridge-mtu",
                                          bridge_domain + "/transparent-lan-service"}));
}

TEST(ChangeUnits, a_leaf_that_an_entry_cannot_lose_is_a_unit_when_it_changes) {
  const std::string neighbour = vpws + "/vpn{south}/neighbor{192.0.2.1}";
  EXPECT_EQ(Cut({neighbour + "/pw-id = 1"}, {neighbour + "/pw-id = 2"}).units_and_needs(),
            (Lines{neighbour + "/pw-id"}));
}

TEST(ChangeUnits, what_excludes_other_nodes_needs_their_removal) {
  const std::string encapsulation = south_access + "/encapsulation";
  EXPECT_EQ(
      Cut({encapsulation + "/untagged"}, {encapsulation + "/dot1q-range{10 20}"}).units_and_needs(),
      (Lines{encapsulation + "/untagged", encapsulation + "/dot1q-range{10 20} needs " + encapsulation + "/untagged"}));
  EXPECT_EQ(
      Cut({encapsulation + "/dot1q-range{10 20}", encapsulation + "/dot1q-range{30 40}"}, {encapsulation + "/untagged"})
          .units_and_needs(),
      (Lines{encapsulation + "/dot1q-range{10 20}", encapsulation + "/dot1q-range{30 40}",
             encapsulation + "/untagged needs " + encapsulation + "/dot1q-range{10 20} " + encapsulation +
                 "/dot1q-range{30 40}"}));
}

TEST(ChangeUnits, a_commit_without_a_unit_keeps_what_the_running_configuration_has_there) {
  const std::string north = vpws + "/vpn{north}/access-interface{eth1}";
  const Cut cut({south_access + "/dot1q = 100", north + "/dot1q = 7"}, {north + "/dot1q = 8", vpws + "/vpn{west}"});
  ASSERT_EQ(cut.units_and_needs(), (Lines{north + "/dot1q", vpws + "/vpn{south}", vpws + "/vpn{west}"}));
  const auto candidate = [&cut](const ItemSet &units) { return print(cut.places.candidate(cut.units.shapes(units))); };
  const Lines group{vpws, vpws + "/vpn{north}", north};
  EXPECT_EQ(candidate({false, false, false}),
            (Lines{vpws, vpws + "/vpn{north}", north, north + "/dot1q = 7", vpws + "/vpn{south}", south_access,
                   south_access + "/dot1q = 100"}));
  EXPECT_EQ(candidate({true, true, false}), (Lines{vpws, vpws + "/vpn{north}", north, north + "/dot1q = 8"}));
  EXPECT_EQ(candidate({false, true, true}),
            (Lines{vpws, vpws + "/vpn{north}", north, north + "/dot1q = 7", vpws + "/vpn{west}"}));
}

TEST(ConfigurationItems, entries_and_leafs_can_be_left_out_but_for_those_that_an_entry_cannot_lose) {
  const std::string neighbour = vpws + "/vpn{south}/neighbor{192.0.2.1}";
  const Cut cut({neighbour + "/pw-id = 1", south_access + "/dot1q = 100"}, {neighbour + "/pw-id = 2"});
  const ConfigurationItems items(cut.places, Shapes(cut.places.size(), Shape::commit));
  ASSERT_EQ(items.size(), 5u);  // group, VPN, neighbour, access interface, dot1q
  const ItemSet without_neighbour{true, true, false, true, true};
  EXPECT_EQ(print(cut.places.running(items.shapes(without_neighbour))),
            (Lines{vpws, vpws + "/vpn{south}", south_access, south_access + "/dot1q = 100"}));
  EXPECT_EQ(print(cut.places.candidate(items.shapes(without_neighbour))), (Lines{vpws, vpws + "/vpn{south}"}));
}

TEST(ConfigurationItems, what_a_part_of_the_change_does_not_add_is_no_item) {
  const Cut cut({}, {vpws + "/vpn{south}", vpws + "/vpn{north}"});
  const ConfigurationItems items(cut.places, cut.units.shapes({true, false, true}));
  EXPECT_EQ(items.size(), 2u);
}

/// The tree without what the applications derive.
Lines operators_nodes(const Tree &tree) {
  Lines lines;
  for (const char *top : {"/config", "/mpls"}) {
    const Lines below = print(tree, top);
    lines.insert(lines.end(), below.begin(), below.end());
  }
  return lines;
}

bool is_valid(const Tree &tree) {
  if (tree.root().children.empty()) return true;
  const std::string text = written_as_json(tree, 0).text;
  return print(element::parse_configuration(test_schema(), text, "drawn.json")) == print(tree);
}

/// A configuration that the schema takes: an attachment takes untagged frames or ranges.
Lines drawn_valid_configuration() {
  return *rc::gen::suchThat(drawn_configuration(), [](const Lines &lines) {
    const std::set<std::string> all(lines.begin(), lines.end());
    for (const std::string &line : all) {
      const std::size_t end = line.rfind("/untagged");
      if (end == std::string::npos) continue;
      const std::string range = line.substr(0, end) + "/dot1q-range";
      for (const std::string &other : all) {
        if (other.compare(0, range.size(), range) == 0) return false;
      }
    }
    return true;
  });
}

ItemSet drawn_closed_set(const diagnosis::Items &items) {
  ItemSet set(items.size());
  for (std::size_t i = 0; i < set.size(); ++i) set[i] = *rc::gen::arbitrary<bool>();
  return diagnosis::with_needs(items, set);
}

RC_GTEST_PROP(ChangeUnitsProperty, AllUnitsAreTheCommitAndNoneIsTheRunningConfiguration, ()) {
  const Cut cut(*drawn_configuration(), *drawn_configuration());
  const Lines running = operators_nodes(cut.transaction->running);
  const Shapes all = cut.units.shapes(ItemSet(cut.units.size(), true));
  const Shapes none = cut.units.shapes(ItemSet(cut.units.size(), false));
  RC_ASSERT(print(cut.places.running(all)) == running);
  RC_ASSERT(print(cut.places.candidate(all)) == operators_nodes(cut.transaction->candidate));
  RC_ASSERT(print(cut.places.candidate(none)) == running);
}

RC_GTEST_PROP(ChangeUnitsProperty, EveryPartOfACommitIsValidByTheSchema, ()) {
  const Cut cut(drawn_valid_configuration(), drawn_valid_configuration());
  const Shapes part = cut.units.shapes(drawn_closed_set(cut.units.items()));
  RC_ASSERT(is_valid(cut.places.candidate(part)));
  const ConfigurationItems items(cut.places, part);
  const Shapes reduced = items.shapes(drawn_closed_set(items.items()));
  RC_ASSERT(is_valid(cut.places.running(reduced)));
  RC_ASSERT(is_valid(cut.places.candidate(reduced)));
}

RC_GTEST_PROP(ChangeUnitsProperty, APartOfAPartIsNoLarger, ()) {
  const Cut cut(*drawn_configuration(), *drawn_configuration());
  const ItemSet part = drawn_closed_set(cut.units.items());
  const Cut again(operators_nodes(cut.transaction->running), print(cut.places.candidate(cut.units.shapes(part))));
  RC_ASSERT(again.units.size() == diagnosis::count(part));
}

}  // namespace
