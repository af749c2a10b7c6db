#include "maintenance/transcript/anonymise.h"

#include <gtest/gtest.h>

#include "maintenance/transcript/json.h"
#include "maintenance/transcript/pseudonyms.h"
#include "tests/maintenance/recording/recorded_run.h"

namespace {

using transcript::Pseudonyms;

TEST(Pseudonyms, keep_order_length_beginnings_and_kinds_of_characters) {
  const std::set<std::string> names{"Alpha", "a", "alpha-1", "alpha-2", "alpha_10", "b.b", "zeta", "zeta 9"};
  const Pseudonyms pseudonyms(names, {});
  std::string before;
  for (const std::string &name : names) {
    const std::string pseudonym = pseudonyms.in_text(name);
    EXPECT_LT(before, pseudonym) << name;
    EXPECT_EQ(pseudonym.size(), name.size());
    before = pseudonym;
  }
  EXPECT_EQ(pseudonyms.in_text("alpha-1"), "aaaaa-0");
  EXPECT_EQ(pseudonyms.in_text("alpha-2"), "aaaaa-1");
  EXPECT_EQ(pseudonyms.in_text("zeta 9"), "caaa 0");
}

TEST(Pseudonyms, stand_for_whole_names_alone) {
  const Pseudonyms pseudonyms({"north", "n", "north 2"}, {});
  EXPECT_EQ(pseudonyms.in_text("vpls-group north vpn north 2, n."), "vpls-group aaaaa vpn aaaaa 0, a.");
  EXPECT_EQ(pseudonyms.in_text("northern n-1"), "northern n-1");
  EXPECT_EQ(pseudonyms.in_path("/n/north{north n}/n{7}", false), "/n/north{aaaaa a}/n{7}");
}

TEST(Pseudonyms, double_the_percent_signs_of_a_format) {
  const Pseudonyms pseudonyms({"x%y"}, {});
  EXPECT_EQ(pseudonyms.in_path("/n{x%%y}", true), "/n{a%%a}");
  EXPECT_EQ(pseudonyms.in_path("/n{x%y}", false), "/n{a%a}");
}

TEST(Pseudonyms, keep_their_order_among_names_that_stay) {
  const Pseudonyms pseudonyms({"bb", "b", "dq", "dz", "f"}, {"c", "dx"});
  EXPECT_EQ(pseudonyms.in_text("b bb c dq dx dz f"), "a aa c da dx dy e");
}

TEST(Anonymise, leaves_no_name_of_the_operator) {
  const element::Schema schema;
  for (recording::Recording recording : recordings_of(schema, "access-two-vpns-one-vlan")) {
    transcript::anonymise(recording, schema);
    const std::string text = transcript::to_json(recording);
    for (const char *name : {"campus", "branches", "south", "\"data"}) {
      EXPECT_EQ(text.find(name), std::string::npos) << name << " in\n" << text;
    }
  }
}

}  // namespace
