#include "drawn_configuration.h"

namespace {

rc::Gen<std::string> configuration_line() {
  return rc::gen::exec([] {
    const auto pick = [](std::initializer_list<const char *> texts) {
      return std::string(*rc::gen::elementOf(std::vector<const char *>(texts)));
    };
    const std::string group = pick({"G", "H", R"("a <&]]> \"{")"});
    const std::string vpn = pick({"U", "V"});
    const std::string interface = pick({"eth0", "eth1", "eth2", "eth3"});
    const std::string number = pick({"9", "10", "200"});
    const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group{" + group + "}/vpn{" + vpn + "}";
    const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{" + group + "}/vpn{" + vpn + "}";
    const std::string access = "/access-interface{" + interface + "}";
    const std::vector<std::string> lines = {
        vpls,
        vpls + "/bridge-domain/dot1q = " + number,
        vpls + "/bridge-domain/bridge-mtu = " + number,
        vpls + "/bridge-domain/transparent-lan-service",
        vpls + "/bridge-domain" + access,
        vpls + "/bridge-domain" + access + "/encapsulation/untagged",
        vpls + "/bridge-domain" + access + "/encapsulation/dot1q-range{" + number + " 300}",
        vpls + "/vfi/neighbor{10.0.0." + number + "}/pw-id = " + pick({"1", "2"}),
        vpws + access + "/dot1q = " + number,
        vpws + access + "/encapsulation/untagged",
        vpws + "/neighbor{10.0.0." + number + "}/pw-id = " + pick({"1", "2"}),
        vpws + "/backup-neighbor{10.0.0." + number + "}/pw-id = " + pick({"1", "2"}),
        "/config/vlan{" + number + "}/interface{" + interface + "}",
        "/config/igmp-snooping{" + number + "}/interface{" + interface + "}",
        "/config/l3-interface{l3-" + group + "}/vlan = " + number,
        "/mpls/ldp/interface{l3-" + group + "}",
        "/config/service-port{" + number + "}/match/vlan/vlan-id/vid = " + number,
    };
    return *rc::gen::elementOf(lines);
  });
}

/// Of two cases of a choice the data model allows one.
void keep_first_cases(element::Node &node) {
  for (std::size_t i = 0; i < node.children.size(); ++i) {
    const element::SchemaNode &first = *node.children[i].schema;
    for (std::size_t j = node.children.size(); first.choice != 0 && --j > i;) {
      const element::SchemaNode &other = *node.children[j].schema;
      if (other.choice == first.choice && other.choice_case != first.choice_case) erase_child(node, other);
    }
    keep_first_cases(node.children[i]);
  }
}

}  // namespace

rc::Gen<Lines> drawn_configuration() { return rc::gen::container<Lines>(configuration_line()); }

element::Tree drawn_tree() {
  element::Tree tree = tree_of(*drawn_configuration());
  keep_first_cases(tree.root());
  return tree;
}
