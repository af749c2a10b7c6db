#include "maintenance/comparison/accepted_changes.h"

#include <gtest/gtest.h>

#include "element/input/input_error.h"

namespace {

using maintenance::AcceptedChanges;
using Lines = std::vector<std::string>;

TEST(AcceptedChanges, the_first_line_that_fits_gives_the_reason) {
  AcceptedChanges accepted;
  accepted.parse(
      "# meant\n\n"
      "pw-id-twice accepted->rejected # ids are unique now\n"
      "pw-id-twice *   # the rest of it\r\n"
      "* text # words\n",
      "meant.txt");
  EXPECT_EQ(accepted.reason_of({"pw-id-twice", "accepted->rejected"}), "ids are unique now");
  EXPECT_EQ(accepted.reason_of({"pw-id-twice", "text"}), "the rest of it");
  EXPECT_EQ(accepted.reason_of({"pw-id-moved", "accepted->rejected"}), "");
  EXPECT_EQ(accepted.unused(), Lines{"meant.txt:5: * text"});
  EXPECT_EQ(accepted.reason_of({"vpn-limit", "text"}), "words");
  EXPECT_EQ(accepted.unused(), Lines());
}

TEST(AcceptedChanges, a_line_that_is_none_is_an_error) {
  for (const char *line : {"pw-id-twice # no direction", "pw-id-twice text", "pw-id-twice text #", "a b c # three"}) {
    AcceptedChanges accepted;
    try {
      accepted.parse(std::string("\n") + line, "meant.txt");
      ADD_FAILURE() << line;
    } catch (const element::InputError &error) {
      EXPECT_EQ(std::string(error.what()).find("meant.txt:2: \""), 0U) << error.what();
    }
  }
}

}  // namespace
