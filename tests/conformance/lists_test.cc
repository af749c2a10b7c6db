#include "tests/conformance/conformance_test.h"

namespace conformance {
namespace {

class ListsTest : public ConformanceTest {
 protected:
  /// VPNs a, b, c, ... with ids 1, 2, 3, ...
  void put_vpns(int count) {
    for (int i = 0; i < count; ++i) stage->put(kVpwsVpns, vpn(i));
    stage->open();
  }

  static Values vpn(int i) {
    return {text(std::string(1, static_cast<char>('a' + i))), u32(1U + static_cast<unsigned>(i))};
  }
};

TEST_F(ListsTest, texts_stand_byte_by_byte_then_numbers_by_value) {
  const std::vector<Values> in_order{{text("10"), u32(1)}, {text("9"), u32(1)},  {text("B"), u32(5)},
                                     {text("a"), u32(9)},  {text("a"), u32(10)}, {text("aa"), u32(1)},
                                     {text("b"), u32(2)}};
  for (const std::size_t i : {5U, 2U, 4U, 0U, 6U, 1U, 3U}) stage->put(kVpwsVpns, in_order[i]);
  stage->open();
  EXPECT_EQ(visit(kVpwsVpns), in_order);
}

TEST_F(ListsTest, signed_numbers_stand_by_value) {
  const std::vector<Values> in_order{
      {u32(1), i32(-5), i32(3)}, {u32(1), i32(9), i32(-1)}, {u32(1), i32(9), i32(1)}, {u32(1), i32(10), i32(0)}};
  for (const std::size_t i : {3U, 1U, 0U, 2U}) stage->put(kMembers, in_order[i]);
  stage->open();
  EXPECT_EQ(visit(kMembers), in_order);
}

TEST_F(ListsTest, addresses_stand_as_they_are_written) {
  const char *list = "/KZ-PWE3-MIB:KZ-PWE3-MIB/pwTable/pwEntry";
  const std::vector<Values> in_order{{u32(1), u32(1), ipv4("9.0.0.2")},
                                     {u32(1), u32(1), ipv4("10.0.0.1")},
                                     {u32(1), u32(1), ipv4("10.0.1.0")},
                                     {u32(1), u32(1), ipv4("200.0.0.0")}};
  for (const std::size_t i : {2U, 0U, 3U, 1U}) stage->put(list, in_order[i]);
  stage->open();
  EXPECT_EQ(visit(list), in_order);
}

TEST_F(ListsTest, are_counted) {
  put_vpns(3);
  EXPECT_EQ(maapi_num_instances(sock(), handle(), "%s", kVpwsVpns), 3);
  EXPECT_EQ(maapi_num_instances(sock(), handle(), "/internal/int-vpws-group{%s}/int-vpws", "south"), 0);
}

TEST_F(ListsTest, an_initialised_cursor_stands_on_no_entry_until_it_moves) {
  put_vpns(2);
  maapi_cursor mc = {};
  mc.n = 9;
  ASSERT_EQ(maapi_init_cursor(sock(), handle(), &mc, "%s", kVpwsVpns), CONFD_OK);
  EXPECT_EQ(mc.n, 0);
  EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);
  EXPECT_EQ(keys_of(mc), vpn(0));
  EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);
  EXPECT_EQ(keys_of(mc), vpn(1));
  EXPECT_EQ(maapi_get_next(&mc), CONFD_OK);
  EXPECT_EQ(mc.n, 0);
  maapi_get_next(&mc);
  EXPECT_EQ(mc.n, 0) << "it stays past the end";
  maapi_destroy_cursor(&mc);
}

TEST_F(ListsTest, a_list_that_is_not_there_has_no_entries) {
  put_vpns(1);
  const char *nowhere = "/internal/int-vpws-group{south}/int-vpws";
  EXPECT_EQ(visit(nowhere), std::vector<Values>{});

  maapi_cursor mc{};
  ASSERT_EQ(maapi_init_cursor(sock(), handle(), &mc, "%s", nowhere), CONFD_OK);
  ReadValues values(4);
  int entries = 2;
  EXPECT_GE(maapi_get_objects(&mc, values.data(), 2, &entries), 0);
  EXPECT_EQ(entries, 0);
  EXPECT_EQ(mc.n, 0);
  maapi_destroy_cursor(&mc);
}

TEST_F(ListsTest, a_cursors_keys_are_texts_with_a_zero_behind_them) {
  put_vpns(1);
  maapi_cursor mc{};
  maapi_init_cursor(sock(), handle(), &mc, "%s", kVpwsVpns);
  maapi_get_next(&mc);
  ASSERT_EQ(mc.keys[0].type, C_BUF);
  ASSERT_EQ(mc.keys[0].val.buf.size, 1U);
  EXPECT_EQ(mc.keys[0].val.buf.ptr[1], '\0');
  maapi_destroy_cursor(&mc);
}

TEST_F(ListsTest, two_cursors_move_on_their_own) {
  put_vpns(2);
  maapi_cursor first{};
  maapi_cursor second{};
  maapi_init_cursor(sock(), handle(), &first, "%s", kVpwsVpns);
  maapi_get_next(&first);
  maapi_init_cursor(sock(), handle(), &second, "%s", kVpwsVpns);
  maapi_get_next(&first);
  maapi_get_next(&second);
  EXPECT_EQ(keys_of(first), vpn(1));
  EXPECT_EQ(keys_of(second), vpn(0));
  maapi_destroy_cursor(&first);
  maapi_destroy_cursor(&second);
}

struct FindCase {
  const char *name;
  confd_find_next_type type;
  Values keys;
  Values found;  ///< empty: none
};

TEST_F(ListsTest, are_searched_from_any_keys_on) {
  const Values m100_1{u32(1), i32(100), i32(1001)};
  const Values m150_2{u32(1), i32(150), i32(1002)};
  const Values m150_3{u32(1), i32(150), i32(1003)};
  for (const Values &keys : {m150_3, m100_1, m150_2}) stage->put(kMembers, keys);
  stage->open();

  const std::vector<FindCase> cases{
      {"same or next, an entry's own keys", CONFD_FIND_SAME_OR_NEXT, m150_2, m150_2},
      {"next, an entry's own keys", CONFD_FIND_NEXT, m150_2, m150_3},
      {"same or next, keys of no entry", CONFD_FIND_SAME_OR_NEXT, {u32(1), i32(101), i32(0)}, m150_2},
      {"next, keys of no entry", CONFD_FIND_NEXT, {u32(1), i32(101), i32(0)}, m150_2},
      {"next, before all", CONFD_FIND_NEXT, {u32(0), i32(9999), i32(9999)}, m100_1},
      {"same or next, behind all", CONFD_FIND_SAME_OR_NEXT, {u32(1), i32(150), i32(1004)}, {}},
      {"next, the last entry's own keys", CONFD_FIND_NEXT, m150_3, {}},
      {"missing keys stand before all that there are", CONFD_FIND_NEXT, {u32(1), i32(150)}, m150_2},
      {"the same with same or next", CONFD_FIND_SAME_OR_NEXT, {u32(1), i32(150)}, m150_2},
      {"no keys at all", CONFD_FIND_NEXT, {}, m100_1},
      {"negative numbers are small", CONFD_FIND_NEXT, {u32(1), i32(-1), i32(0)}, m100_1},
  };
  for (const FindCase &row : cases) {
    SCOPED_TRACE(row.name);
    std::vector<confd_value_t> keys;
    for (const Value &key : row.keys) keys.push_back(scripted::borrowed(key));
    maapi_cursor mc{};
    maapi_init_cursor(sock(), handle(), &mc, "%s", kMembers);
    EXPECT_EQ(maapi_find_next(&mc, row.type, keys.data(), static_cast<int>(keys.size())), CONFD_OK);
    EXPECT_EQ(keys_of(mc), row.found);
    maapi_destroy_cursor(&mc);
  }
}

TEST_F(ListsTest, are_searched_by_text_then_number) {
  stage->put(kVpwsVpns, {text("east"), u32(4)});
  stage->put(kVpwsVpns, {text("eastern"), u32(2)});
  stage->open();
  const std::string vpn = "east";
  const Value name = text(vpn);
  confd_value_t keys[] = {scripted::borrowed(name), scripted::borrowed(u32(0))};
  maapi_cursor mc{};
  maapi_init_cursor(sock(), handle(), &mc, "%s", kVpwsVpns);
  maapi_find_next(&mc, CONFD_FIND_NEXT, keys, 2);
  EXPECT_EQ(keys_of(mc), (Values{text("east"), u32(4)}));
  maapi_get_next(&mc);
  EXPECT_EQ(keys_of(mc), (Values{text("eastern"), u32(2)})) << "a move goes on from what was found";
  maapi_destroy_cursor(&mc);
}

struct Fetch {
  int entries;
  bool stands_on_an_entry;
};

struct FetchCase {
  int entries;
  int batch;
  std::vector<Fetch> fetches;
};

TEST_F(ListsTest, are_fetched_in_batches_until_the_cursor_stands_on_no_entry) {
  const FetchCase cases[] = {
      {5, 2, {{2, true}, {2, true}, {1, false}}},
      {4, 2, {{2, true}, {2, true}, {0, false}}},
      {1, 2, {{1, false}}},
      {2, 2, {{2, true}, {0, false}}},
  };
  for (const FetchCase &row : cases) {
    SCOPED_TRACE(std::to_string(row.entries) + " entries by " + std::to_string(row.batch));
    begin_anew();
    put_vpns(row.entries);
    maapi_cursor mc{};
    maapi_init_cursor(sock(), handle(), &mc, "%s", kVpwsVpns);
    int read = 0;
    for (const Fetch &fetch : row.fetches) {
      ReadValues values(static_cast<std::size_t>(row.batch) * 2);
      int entries = row.batch;
      EXPECT_EQ(maapi_get_objects(&mc, values.data(), 2, &entries), 2) << "the values of an entry";
      EXPECT_EQ(entries, fetch.entries);
      EXPECT_EQ(mc.n, fetch.stands_on_an_entry ? 2 : 0);
      Values expected;
      for (int i = 0; i < fetch.entries; ++i, ++read) {
        for (const Value &value : vpn(read)) expected.push_back(value);
      }
      EXPECT_EQ(values.filled(), expected);
      if (fetch.stands_on_an_entry) {
        EXPECT_EQ(keys_of(mc), vpn(read - 1)) << "the last one read";
      }
    }
    maapi_destroy_cursor(&mc);
  }
}

TEST_F(ListsTest, a_fetch_begins_behind_the_entry_that_the_cursor_stands_on) {
  put_vpns(4);
  maapi_cursor mc{};
  maapi_init_cursor(sock(), handle(), &mc, "%s", kVpwsVpns);
  maapi_get_next(&mc);
  {
    ReadValues values(4);
    int entries = 2;
    maapi_get_objects(&mc, values.data(), 2, &entries);
    EXPECT_EQ(values.at(0), vpn(1)[0]);
    EXPECT_EQ(values.at(2), vpn(2)[0]);
  }
  maapi_get_next(&mc);
  EXPECT_EQ(keys_of(mc), vpn(3)) << "a move goes on behind the last one read";
  maapi_destroy_cursor(&mc);
}

TEST_F(ListsTest, a_fetch_fills_no_more_values_than_it_is_asked_for) {
  stage->put(kTunnels, {text("north"), u32(1), u32(7), u32(100)}, {{"role", u32(0)}, {"vpn", text("east")}});
  stage->put(kTunnels, {text("north"), u32(1), u32(8), u32(200)}, {{"role", u32(1)}, {"vpn", text("east")}});
  stage->open();
  maapi_cursor mc{};
  maapi_init_cursor(sock(), handle(), &mc, "%s", kTunnels);
  ReadValues values(6);
  int entries = 2;
  EXPECT_EQ(maapi_get_objects(&mc, values.data(), 3, &entries), 6) << "what an entry has, not what was asked for";
  EXPECT_EQ(values.filled(), (Values{text("north"), u32(1), u32(7), text("north"), u32(1), u32(8)}));
  maapi_destroy_cursor(&mc);
}

}  // namespace
}  // namespace conformance
