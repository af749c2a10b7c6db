#include <gtest/gtest.h>

#include "config_validate_comn/daemon/guards.h"
#include "tests/support/printers.h"

namespace {

using ScopedObjectTest = scripted::PlatformTest;

// The daemon frees a list as it frees a text; the scripted platform hands out texts only, so the list stands for one.
TEST_F(ScopedObjectTest, frees_texts_and_lists_and_nothing_else) {
  {
    scoped_object<4> values;
    platform.hand_out(scripted::text("north"), &values[0]);
    values[1].type = C_LIST;
    platform.hand_out(scripted::u32(7), &values[2]);
    EXPECT_EQ(values[3].type, C_NOEXISTS) << "what no read filled";
    EXPECT_EQ(platform.count("confd_free_value"), 0U);
  }
  EXPECT_EQ(platform.count("confd_free_value"), 2U) << "the text and the list";
}

TEST_F(ScopedObjectTest, frees_a_list_of_each_value) {
  {
    scoped_object<2> values;
    for (confd_value_t &value : values) value.type = C_LIST;
  }
  EXPECT_EQ(platform.count("confd_free_value"), 2U);
}

}  // namespace
