#include "host/seam/agent_paths.h"

#include "tests/host/served_element.h"

namespace {

using element::Value;
using host_test::schema;
using host_test::shown;
using host_test::tag;

/// The elements of a key path, last one first; the keys of one are joined by "+".
std::vector<std::string> elements(const confd_hkeypath_t &path) {
  std::vector<std::string> result;
  for (int i = 0; i < path.len; ++i) {
    std::string element = shown(path.v[i][0]);
    for (int k = 1; path.v[i][0].type != C_XMLTAG && path.v[i][k].type != C_NOEXISTS; ++k) {
      element += " + " + shown(path.v[i][k]);
    }
    result.push_back(element);
  }
  return result;
}

confd_hkeypath_t written(const element::Path &path) {
  confd_hkeypath_t result;
  host::KeyPath(path).write(result);
  return result;
}

using Elements = std::vector<std::string>;

TEST(KeyPath, stands_in_reverse_order_with_the_keys_of_an_entry_in_one_element) {
  const element::Path path =
      element::parse_path(schema(), "/internal/int-vpls-group{G}/int-vpls-vpn{V 5}/int-vpls-bd/int-vpls-bd-vlan");
  EXPECT_EQ(elements(written(path)),
            (Elements{tag("int-vpls-bd-vlan"), tag("int-vpls-bd"), "C_BUF V + C_UINT32 5", tag("int-vpls-vpn"),
                      "C_BUF G", tag("int-vpls-group"), tag("internal")}));
}

TEST(KeyPath, a_name_carries_its_modules_tag) {
  const element::Path path = element::parse_path(schema(), "/mpls/l2vpn-config");
  const confd_hkeypath_t result = written(path);
  EXPECT_EQ(result.v[0][0].val.xmltag.ns, element::node_tag("l2-vpn"));
  EXPECT_EQ(result.v[1][0].val.xmltag.ns, element::node_tag("mpls"));
}

TEST(KeyPath, of_a_key_leaf_has_its_entry_below_it) {
  const element::Path path = element::parse_path(
      schema(), "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/access-interface{I}/name");
  const Elements result = elements(written(path));
  EXPECT_EQ(result[0], tag("name"));
  EXPECT_EQ(result[1], "C_BUF I");
  EXPECT_EQ(result[4], "C_BUF V");
  EXPECT_EQ(result[6], "C_BUF G");
}

TEST(KeyPath, holds_no_more_keys_than_the_seam_carries) {
  const element::SchemaNode &list = *schema().find("/internal/int-vpws-group");
  const element::Path path{{&list, std::vector<Value>(12, Value(7U))}};
  const confd_hkeypath_t result = written(path);
  EXPECT_EQ(result.v[0][MAXKEYLEN - 2].type, C_UINT32);
  EXPECT_EQ(result.v[0][MAXKEYLEN - 1].type, C_NOEXISTS);
}

TEST(KeyPath, holds_no_more_elements_than_the_seam_carries) {
  host::KeyPath path;
  const element::SchemaNode &name = *schema().find("/internal");
  for (int i = 0; i < MAXDEPTH; ++i) path.push(name);
  confd_hkeypath_t result;
  path.write(result);
  EXPECT_EQ(result.len, MAXDEPTH);
  EXPECT_THROW(path.push(name), std::length_error);
}

class PrintedPath : public host_test::ServedElement {
 protected:
  std::string printed(const confd_hkeypath_t &path) {
    char text[512] = "untouched";
    confd_pp_kpath(text, sizeof text, &path);
    return text;
  }
};

TEST_F(PrintedPath, reads_as_a_path_again) {
  serve();
  for (const char *text : {"/internal/int-vpls-group{G}/int-vpls-vpn{V 5}/int-vpls-bd/int-vpls-bd-vlan", "/internal",
                           "/internal/int-sub-vpls-vpn-nbr{G V 1 10.0.0.1}/pw-id", "/internal/int-vpws-group{\"a b\"}",
                           "/internal/int-vpws-group{\"\"}/int-vpws{V 1}",
                           "/KZ-MGMD-ROUTER-MIB/mgmdRouterInterfaceTable/mgmdRouterInterfaceEntry{1 -7}"}) {
    const element::Path path = element::parse_path(schema(), text);
    EXPECT_EQ(printed(written(path)), text);
  }
}

TEST_F(PrintedPath, of_no_elements_is_the_roots) {
  serve();
  EXPECT_EQ(printed(written({})), "/");
}

TEST_F(PrintedPath, a_name_that_is_not_in_the_model_is_its_tag) {
  serve();
  confd_hkeypath_t path = written(element::parse_path(schema(), "/internal/int-vpws-group"));
  path.v[0][0].val.xmltag.tag = 12345;
  EXPECT_EQ(printed(path), "/internal/12345");
}

TEST_F(PrintedPath, is_cut_and_its_length_told) {
  serve();
  const element::Path path = element::parse_path(schema(), "/internal/int-vpws-group");
  const confd_hkeypath_t key_path = written(path);
  char text[10] = "untouched";
  EXPECT_EQ(confd_pp_kpath(text, 5, &key_path), 24);
  EXPECT_STREQ(text, "/int");
  EXPECT_EQ(confd_pp_kpath(nullptr, 0, &key_path), 24);
}

TEST_F(PrintedPath, needs_a_transaction_and_may_fail) {
  const confd_hkeypath_t path = written({});
  char text[10] = "untouched";
  EXPECT_EQ(confd_pp_kpath(text, sizeof text, &path), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
  serve();
  fail_next(host::SeamFunction::confd_pp_kpath);
  EXPECT_EQ(confd_pp_kpath(text, sizeof text, &path), -1);
  EXPECT_STREQ(text, "untouched");
}

}  // namespace
