#include "headroom/boundary.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace {

using headroom::Answer;
using headroom::Boundary;

/// A library that accepts up to a number, and remembers what it was asked.
struct Library {
  std::uint64_t most = 0;
  std::vector<std::uint64_t> asked{};

  headroom::Rejection rejection() {
    return [this](std::uint64_t more) -> std::optional<Answer> {
      asked.push_back(more);
      if (more <= most) return std::nullopt;
      return Answer{"rule", "point", std::to_string(more)};
    };
  }
  headroom::Excess true_excess() const {
    return [this](const Answer &, std::uint64_t more) { return std::optional(more - most); };
  }
  bool was_asked(std::uint64_t more) const { return std::find(asked.begin(), asked.end(), more) != asked.end(); }
};

std::optional<std::uint64_t> tells_nothing(const Answer & /*rejection*/, std::uint64_t /*more*/) {
  return std::nullopt;
}
std::optional<std::uint64_t> always_tells_one(const Answer & /*rejection*/, std::uint64_t /*more*/) { return 1; }
std::optional<std::uint64_t> tells_too_much(const Answer & /*rejection*/, std::uint64_t more) { return more + 7; }

void expect_boundary_at(std::uint64_t most, std::uint64_t expected, const headroom::Excess &excess, Library &library) {
  const Boundary boundary = find_boundary(1000, expected, library.rejection(), excess);
  EXPECT_EQ(boundary.accepted, most) << "expected at " << expected;
  ASSERT_TRUE(boundary.rejection);
  EXPECT_EQ(boundary.rejection->message, std::to_string(most + 1)) << "expected at " << expected;
  EXPECT_TRUE(most == 0 || library.was_asked(most)) << most;
  EXPECT_TRUE(library.was_asked(most + 1)) << most;
}

TEST(Boundary, is_asked_for_on_both_sides_whatever_is_expected_or_told) {
  for (std::uint64_t most = 0; most < 70; ++most) {
    for (const std::uint64_t expected : {0U, 1U, 7U, 64U, 999U}) {
      Library library{most};
      for (const headroom::Excess &excess : {library.true_excess(), headroom::Excess(tells_nothing),
                                             headroom::Excess(always_tells_one), headroom::Excess(tells_too_much)}) {
        library.asked.clear();
        expect_boundary_at(most, expected, excess, library);
      }
    }
  }
}

TEST(Boundary, takes_two_questions_where_it_is_expected) {
  Library library{60};
  find_boundary(1000, 60, library.rejection(), library.true_excess());
  EXPECT_EQ(library.asked, (std::vector<std::uint64_t>{61, 60}));
}

TEST(Boundary, takes_few_questions_where_a_rejection_tells_it) {
  Library library{700};
  find_boundary(10000, 0, library.rejection(), library.true_excess());
  EXPECT_EQ(library.asked, (std::vector<std::uint64_t>{1, 2, 4, 8, 16, 32, 64, 128, 256, 512, 1024, 700, 701}));
}

TEST(Boundary, is_not_sought_twice_where_a_rejection_told_it_wrongly) {
  Library library{5};
  find_boundary(1000, 63, library.rejection(), always_tells_one);
  EXPECT_EQ(library.asked, (std::vector<std::uint64_t>{64, 63, 31, 15, 7, 3, 5, 6}));
}

TEST(Boundary, is_missing_where_the_room_ends_before) {
  for (const std::uint64_t room : {1U, 2U, 3U, 100U}) {
    Library library{1000};
    const Boundary boundary = find_boundary(room, 0, library.rejection(), tells_nothing);
    EXPECT_EQ(boundary.accepted, room);
    EXPECT_FALSE(boundary.rejection);
    EXPECT_EQ(library.asked.back(), room);
  }
}

TEST(Boundary, takes_no_question_where_there_is_no_room) {
  Library library;
  const Boundary boundary = find_boundary(0, 5, library.rejection(), tells_nothing);
  EXPECT_EQ(boundary.accepted, 0u);
  EXPECT_FALSE(boundary.rejection);
  EXPECT_TRUE(library.asked.empty());
}

TEST(Boundary, is_not_sought_beyond_the_room) {
  Library library{1000};
  EXPECT_EQ(find_boundary(10, 500, library.rejection(), tells_nothing).accepted, 10u);
  EXPECT_EQ(library.asked, (std::vector<std::uint64_t>{10}));
}

}  // namespace
