#include <algorithm>

#include "confd_maapi.h"
#include "tests/host/served_element.h"

namespace {

using element::Value;
using host::SeamFunction;
using host_test::buf;
using host_test::i32;
using host_test::shown;
using host_test::u32;

constexpr const char *kMembers =
    "/KZ-VLAN-MANAGER-MIB:KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable/vlanMgrStaticMemberEntry";

class AgentCursors : public host_test::ServedElement {
 protected:
  void TearDown() override {
    maapi_destroy_cursor(&mc);
    ServedElement::TearDown();
  }

  void put_groups(std::initializer_list<const char *> names) {
    for (const char *name : names) candidate.put("/internal/int-vpws-group{" + std::string(name) + "}");
    serve();
  }

  void open(const char *path) { ASSERT_EQ(maapi_init_cursor(sock, thandle, &mc, "%s", path), CONFD_OK); }

  std::vector<std::string> keys() const {
    std::vector<std::string> result;
    std::transform(mc.keys, mc.keys + mc.n, std::back_inserter(result), shown);
    return result;
  }

  maapi_cursor mc{};
};

using Keys = std::vector<std::string>;

TEST_F(AgentCursors, keys_of_another_type_or_number_are_served_as_they_are) {
  candidate.put_entry(kMembers, {Value(std::string("one")), Value(std::int64_t{5})});
  candidate.put_entry(kMembers, std::vector<Value>(12, Value(7U)));
  candidate.sort();
  serve();
  open(kMembers);
  maapi_get_next(&mc);
  EXPECT_EQ(keys(), (Keys{"C_BUF one", "type " + std::to_string(C_INT64)}));
  maapi_get_next(&mc);
  EXPECT_EQ(keys(), Keys(MAXKEYLEN, "C_UINT32 7")) << "no more than a cursor can hold";
}

TEST_F(AgentCursors, a_key_is_gone_with_the_next_move) {
  put_groups({"aaaa", "bbbb"});
  open("/internal/int-vpws-group");
  maapi_get_next(&mc);
  const confd_value_t kept = mc.keys[0];
  maapi_get_next(&mc);
  EXPECT_EQ(shown(kept), "C_BUF bbbb") << "what held on to a key reads another's";
}

TEST_F(AgentCursors, an_empty_text_is_a_key_like_any_other) {
  candidate.put("/internal/int-vpws-group{\"\"}");
  serve();
  open("/internal/int-vpws-group");
  maapi_get_next(&mc);
  EXPECT_EQ(keys(), Keys{"C_BUF "});
  EXPECT_EQ(*mc.keys[0].val.buf.ptr, '\0');
}

TEST_F(AgentCursors, only_a_list_as_a_whole_is_walked) {
  put_groups({"G"});
  for (const char *path : {"/internal", "/internal/int-vpws-group{G}", "/internal/int-vpws-group{G}/name", "/"}) {
    confd_errno = 0;
    EXPECT_EQ(maapi_init_cursor(sock, thandle, &mc, "%s", path), -1) << path;
    EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH) << path;
  }
}

TEST_F(AgentCursors, a_cursor_that_is_not_open_yields_nothing) {
  put_groups({"G"});
  const auto is_dead = [this] {
    mc.n = 5;
    int entries = 1;
    confd_value_t value = u32(77);
    return maapi_get_next(&mc) == -1 && mc.n == 0 && maapi_find_next(&mc, CONFD_FIND_NEXT, nullptr, 0) == -1 &&
           mc.n == 0 && maapi_get_objects(&mc, &value, 1, &entries) == -1 && confd_errno == CONFD_ERR_NOSESSION &&
           entries == 1 && value.val.u32 == 77;
  };
  EXPECT_TRUE(is_dead()) << "never initialised";
  EXPECT_EQ(maapi_init_cursor(sock, thandle, &mc, "/nowhere"), -1);
  EXPECT_TRUE(is_dead()) << "not initialised for want of such a list";
  open("/internal/int-vpws-group");
  maapi_destroy_cursor(&mc);
  EXPECT_TRUE(is_dead()) << "destroyed";
}

TEST_F(AgentCursors, a_cursor_of_another_transaction_is_not_known) {
  put_groups({"G"});
  open("/internal/int-vpws-group");
  serve();
  EXPECT_EQ(maapi_get_next(&mc), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_NOSESSION);
  EXPECT_EQ(session.statistics.open_cursors, 1) << "its owner did not destroy it";
  session.statistics.open_cursors = 0;
}

TEST_F(AgentCursors, searched_keys_are_of_the_lists_types) {
  candidate.put(std::string(kMembers) + "{1 100 1001}");
  serve();
  open(kMembers);
  confd_value_t wrong_type[]{u32(1), u32(100)};
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_NEXT, wrong_type, 2), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADTYPE);
  confd_value_t too_many[]{u32(1), i32(100), i32(0), i32(0)};
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_NEXT, too_many, 4), -1);
  EXPECT_EQ(confd_errno, CONFD_ERR_BADPATH);
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_NEXT, too_many, -1), -1);
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_NEXT, too_many, 3), CONFD_OK);
  EXPECT_EQ(keys(), (Keys{"C_UINT32 1", "C_INT32 100", "C_INT32 1001"}));
}

TEST_F(AgentCursors, a_zero_terminated_text_may_be_searched) {
  put_groups({"a", "c"});
  open("/internal/int-vpws-group");
  char text[] = "b";
  confd_value_t key{};
  key.type = C_STR;
  key.val.s = text;
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_SAME_OR_NEXT, &key, 1), CONFD_OK);
  EXPECT_EQ(keys(), Keys{"C_BUF c"});
}

TEST_F(AgentCursors, a_search_may_go_back) {
  put_groups({"a", "b", "c"});
  open("/internal/int-vpws-group");
  while (maapi_get_next(&mc) == CONFD_OK && mc.n != 0) {
  }
  const std::string name = "a";
  confd_value_t key = buf(name);
  maapi_find_next(&mc, CONFD_FIND_NEXT, &key, 1);
  EXPECT_EQ(keys(), Keys{"C_BUF b"});
  maapi_get_next(&mc);
  EXPECT_EQ(keys(), Keys{"C_BUF c"});
}

TEST_F(AgentCursors, a_search_past_the_end_stands_on_no_entry_and_stays_there) {
  put_groups({"a"});
  open("/internal/int-vpws-group");
  const std::string name = "z";
  confd_value_t key = buf(name);
  EXPECT_EQ(maapi_find_next(&mc, CONFD_FIND_SAME_OR_NEXT, &key, 1), CONFD_OK);
  EXPECT_EQ(mc.n, 0);
  EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);
  EXPECT_EQ(mc.n, 0);
}

TEST_F(AgentCursors, a_negative_number_of_entries_or_values_is_refused) {
  put_groups({"a"});
  open("/internal/int-vpws-group");
  confd_value_t value = u32(77);
  int entries = -1;
  EXPECT_EQ(maapi_get_objects(&mc, &value, 1, &entries), -1);
  entries = 1;
  EXPECT_EQ(maapi_get_objects(&mc, &value, -1, &entries), -1);
  EXPECT_EQ(shown(value), "C_UINT32 77");
}

TEST_F(AgentCursors, a_fetch_of_no_entries_succeeds) {
  put_groups({"a"});
  open("/internal/int-vpws-group");
  int entries = 0;
  EXPECT_EQ(maapi_get_objects(&mc, nullptr, 2, &entries), 2);
  EXPECT_EQ(entries, 0);
  maapi_destroy_cursor(&mc);
  open("/internal/int-vpls-group");
  EXPECT_EQ(maapi_get_objects(&mc, nullptr, 2, &entries), 0) << "there is no entry to have values";
  EXPECT_EQ(entries, 0);
}

TEST_F(AgentCursors, a_list_of_each_length_ends_its_batches_on_a_short_one) {
  const auto fetched = [this](int list_size) {
    element::Tree tree(host_test::schema());
    for (int i = 0; i < list_size; ++i) tree.put("/internal/int-ldp-intf-l3{I " + std::to_string(i) + " 1}");
    candidate = tree;
    serve();
    open("/internal/int-ldp-intf-l3");
    int read = 0;
    int fetches = 0;
    do {
      confd_value_t values[64 * 3];
      int entries = 64;
      EXPECT_EQ(maapi_get_objects(&mc, values, 3, &entries), list_size == 0 ? 0 : 3);
      for (int i = 0; i < entries * 3; ++i) confd_free_value(&values[i]);
      read += entries;
      ++fetches;
    } while (mc.n != 0);
    maapi_destroy_cursor(&mc);
    EXPECT_EQ(read, list_size);
    return fetches;
  };
  const std::vector<std::pair<int, int>> rows{{0, 1}, {1, 1}, {63, 1}, {64, 2}, {65, 2}, {127, 2}, {128, 3}, {129, 3}};
  for (const auto &[size, fetches] : rows) EXPECT_EQ(fetched(size), fetches) << size << " entries";
}

}  // namespace
