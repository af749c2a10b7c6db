#include "headroom/spare_names.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

using headroom::PortKind;
using headroom::SpareNames;

const element::Schema &schema() {
  static const element::Schema model;
  return model;
}

const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group";

class SpareNamesOf : public testing::Test {
 protected:
  SpareNames spare() const { return {running, candidate, profile}; }

  element::Tree running{schema()};
  element::Tree candidate{schema()};
  element::Profile profile;
};

TEST_F(SpareNamesOf, a_group_is_in_neither_configuration) {
  EXPECT_EQ(spare().group(), "spare");
  running.put(vpls + "{spare}");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{spare-1}");
  EXPECT_EQ(spare().group(), "spare-2");
}

TEST_F(SpareNamesOf, a_port_is_neither_of_the_element_nor_in_a_configuration) {
  profile = element::Profile({}, {{"spare-ethernet-2", 1, 1}, {"service-port-1", 2, 2}});
  candidate.put(vpls + "{g}/vpn{v}/bridge-domain/access-interface{spare-ethernet-3}");
  EXPECT_EQ(spare().ports(PortKind::ethernet, 3),
            (std::vector<std::string>{"spare-ethernet-1", "spare-ethernet-4", "spare-ethernet-5"}));
  EXPECT_EQ(spare().ports(PortKind::service_port, 2), (std::vector<std::string>{"service-port-2", "service-port-3"}));
  EXPECT_TRUE(spare().ports(PortKind::ethernet, 0).empty());
}

TEST_F(SpareNamesOf, an_address_is_no_neighbours) {
  running.put(vpls + "{g}/vpn{v}/vfi/neighbor{240.0.0.2}");
  std::vector<std::string> addresses;
  for (const element::Ipv4 address : spare().addresses(3)) addresses.push_back(element::to_text(address));
  EXPECT_EQ(addresses, (std::vector<std::string>{"240.0.0.1", "240.0.0.3", "240.0.0.4"}));
}

TEST_F(SpareNamesOf, ports_join_the_element_beside_those_that_it_has) {
  profile = element::Profile({}, {{"ge-1", std::numeric_limits<std::uint32_t>::max(), 7},
                                  {"ge-2", 5, std::numeric_limits<std::int32_t>::max() - 1}});
  profile.card.vpn_max = 3;
  const element::Profile more = headroom::with_ports(profile, {"a", "b"});
  EXPECT_EQ(more.interfaces().size(), 4u);
  EXPECT_EQ(more.card.vpn_max, 3u);
  EXPECT_NE(more.by_name("a"), nullptr);
  EXPECT_NE(more.by_name("b"), nullptr);
  EXPECT_EQ(more.by_name("ge-1")->ifindex, 7);
}

}  // namespace
