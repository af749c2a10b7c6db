#include "maintenance/generator/draw_commit.h"

#include <fmt/format.h>

#include <array>

#include "maintenance/generator/draft.h"

namespace maintenance {
namespace {

using Profiles = std::array<std::shared_ptr<const element::Profile>, 5>;

std::vector<element::Interface> interfaces() {
  std::vector<element::Interface> all;
  const auto add = [&all](const std::string &name) {
    const auto number = static_cast<std::uint32_t>(all.size() + 1);
    // Identifiers in another order than names.
    all.push_back({name, number, static_cast<std::int32_t>(2000 - number)});
  };
  for (const char *name : {"eth1", "eth2", "eth3", "eth%%", "service-port-1", "service-port-2", "service-port-x",
                           "lag-service-port-4", "service-9", "service-port", "service-port-99999999999"}) {
    add(name);
  }
  for (int i = 1; i <= 20; ++i) add(fmt::format("p{:02}", i));
  return all;
}

Profiles make_profiles() {
  const std::array<element::CardLimits, 5> cards{{
      {64, 64, 512, 128}, {4, 3, 6, 3}, {1000, 6, 10, 20}, {12, 64, 20, 8}, {},  // a card that tells no limit
  }};
  Profiles profiles;
  for (std::size_t i = 0; i < cards.size(); ++i) {
    profiles[i] = std::make_shared<const element::Profile>(cards[i], interfaces());
  }
  return profiles;
}

std::shared_ptr<const element::Profile> draw_profile(Random &random) {
  static const Profiles profiles = make_profiles();
  return profiles[random.one_of<std::size_t>({0, 0, 0, 0, 1, 2, 3, 4})];
}

void draw_pattern(Draft &draft) {
  static const std::array<const std::vector<Pattern> *, 7> subjects{
      &access_patterns, &access_patterns, &service_patterns, &pseudowire_patterns,
      &member_patterns, &limit_patterns,  &change_patterns};
  const std::vector<Pattern> &subject = *subjects[draft.random.number(subjects.size())];
  subject[draft.random.number(subject.size())](draft);
}

}  // namespace

Commit draw_commit(const element::Schema &schema, std::uint64_t seed) {
  Draft draft(schema, seed);
  const auto profile = draw_profile(draft.random);
  const bool is_quiet = draft.random.one_in(12);
  if (is_quiet || draft.random.one_in(4)) draw_background(draft);
  for (std::size_t left = is_quiet ? 0 : 1 + draft.random.number(4); left > 0; --left) draw_pattern(draft);
  return {profile, std::move(draft.running), std::move(draft.candidate)};
}

}  // namespace maintenance
