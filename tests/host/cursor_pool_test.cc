#include "host/seam/cursor_pool.h"

#include "tests/host/served_element.h"

namespace {

const element::SchemaNode &list() { return *host_test::schema().find("/internal/int-vpws-group"); }

TEST(CursorPool, knows_a_cursor_from_its_opening_to_its_closing) {
  host::CursorPool pool;
  void *handle = pool.open(list(), nullptr);
  ASSERT_NE(pool.find(handle), nullptr);
  EXPECT_EQ(pool.find(handle)->list, &list());
  EXPECT_TRUE(pool.close(handle));
  EXPECT_EQ(pool.find(handle), nullptr);
  EXPECT_FALSE(pool.close(handle));
}

TEST(CursorPool, a_closed_cursors_handle_is_not_the_next_ones) {
  host::CursorPool pool;
  void *first = pool.open(list(), nullptr);
  pool.close(first);
  void *second = pool.open(list(), nullptr);
  EXPECT_NE(first, second);
  EXPECT_FALSE(pool.close(first));
  EXPECT_NE(pool.find(second), nullptr);
}

TEST(CursorPool, another_cursor_starts_before_the_first_entry_again) {
  host::CursorPool pool;
  void *first = pool.open(list(), nullptr);
  pool.find(first)->next = 7;
  pool.close(first);
  EXPECT_EQ(pool.find(pool.open(list(), nullptr))->next, 0U);
}

TEST(CursorPool, what_never_was_a_handle_is_none) {
  host::CursorPool pool;
  EXPECT_EQ(pool.find(nullptr), nullptr);
  void *handle = pool.open(list(), nullptr);
  EXPECT_NE(handle, nullptr);
  int somewhere = 0;
  EXPECT_EQ(pool.find(&somewhere), nullptr);
  EXPECT_EQ(pool.find(nullptr), nullptr);
}

TEST(CursorPool, closes_all_that_are_open) {
  host::CursorPool pool;
  void *first = pool.open(list(), nullptr);
  void *second = pool.open(list(), nullptr);
  pool.close_all();
  EXPECT_EQ(pool.find(first), nullptr);
  EXPECT_EQ(pool.find(second), nullptr);
}

}  // namespace
