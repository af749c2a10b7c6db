#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "config_validate_vpn/handlers.h"
#include "tests/property/naive_pseudowires.h"
#include "tests/support/platform.h"

namespace {

using scripted::u32;

rc::Gen<neighbor> any_neighbor() {
  return rc::gen::construct<neighbor>(rc::gen::element(neighbor::kVpws, neighbor::kVpwsBackup, neighbor::kVpls),
                                      rc::gen::element<std::string>("G", "G1", "%s"),
                                      rc::gen::element<std::string>("A", "50%"),
                                      rc::gen::element<std::string>("10.0.0.1", "10.0.0.2", "11.0.0.1", "1.0.0.10"));
}

/// From many, so that most pseudowires do not meet, or from few, so that most do.
rc::Gen<std::uint32_t> any_pw_id(bool is_crowded) {
  if (is_crowded) return rc::gen::inRange<std::uint32_t>(0, 4);
  return rc::gen::resize(rc::kNominalSize, rc::gen::inRange<std::uint32_t>(1, 400));
}

rc::Gen<pw_configuration> any_configuration(bool is_crowded) {
  return rc::gen::container<pw_configuration>(any_neighbor(), any_pw_id(is_crowded));
}

/// What an operator does to the running configuration: removes, renumbers and rewrites some, and adds others.
pw_commit any_edit(bool is_crowded) {
  pw_commit commit;
  commit.running = *any_configuration(is_crowded);
  for (const auto &[at, pw_id] : commit.running) {
    const int action = *rc::gen::weightedElement<int>({{12, 0}, {2, 1}, {2, 2}, {1, 3}});
    if (action != 1) commit.committing[at] = action == 2 ? *any_pw_id(is_crowded) : pw_id;
    if (action == 3) commit.rewritten.insert(at);
  }
  const auto added = *rc::gen::resize(6, any_configuration(is_crowded));
  commit.committing.insert(added.begin(), added.end());
  return commit;
}

/// Pseudowires that stay as they are, so that the lists reach over several batches.
void add_bystanders(pw_commit &commit, std::uint32_t count) {
  for (std::uint32_t i = 0; i < count; ++i) {
    const auto kind = i % 3 == 0 ? neighbor::kVpls : neighbor::kVpws;
    const neighbor at{kind, "Bystanders", "V" + std::to_string(i), "10.0.0.9"};
    commit.running[at] = commit.committing[at] = 1000 + i;
  }
}

void configure(scripted::Datastore &datastore, const pw_configuration &configuration) {
  std::vector<scripted::Values> vpls;
  std::vector<scripted::Values> vpws;
  for (const auto &[at, pw_id] : configuration) {
    if (at.kind == neighbor::kVpls) vpls.push_back(scripted::vpls_neighbor(at.with(pw_id)));
    if (at.kind != neighbor::kVpls) vpws.push_back(scripted::vpws_tunnel(at.with(pw_id)));
  }
  datastore.list(scripted::kVplsNeighborList, scripted::kPwListKeys, vpls);
  datastore.list(scripted::kVpwsTunnelList, scripted::kPwListKeys, vpws);
}

void configure(scripted::Platform &platform, const pw_commit &commit) {
  configure(platform.running(), commit.running);
  configure(platform.candidate(), commit.committing);
  for (const auto &[at, pw_id] : commit.committing) {
    if (commit.value_set(at) != nullptr) platform.change(at.path(), MOP_VALUE_SET, u32(pw_id));
  }
  for (const auto &[at, pw_id] : commit.running) {
    if (commit.committing.count(at) == 0) platform.change(at.path(), MOP_DELETED);
  }
  std::vector<scripted::Values> table;
  for (std::uint32_t i = 1; i <= commit.pseudowires; ++i) table.push_back({u32(i)});
  platform.list(scripted::kPseudowireTable, 1, table);
}

/// What the handler makes of the commit; nothing may be left open.
naive::pw_verdict judge(const pw_commit &commit) {
  scripted::Platform platform;
  configure(platform, commit);
  const std::int32_t result = config_validate_vpn_peer(platform.socket(), &platform.context(), nullptr, nullptr);
  RC_ASSERT(platform.leaks().empty());
  RC_ASSERT(platform.misuses().empty());
  RC_ASSERT(platform.errors().size() + platform.trace().size() == 1U);
  RC_ASSERT(result == (platform.errors().empty() ? 0 : -1));
  return {platform.error(), platform.trace().empty() ? "" : platform.trace()[0].text};
}

void expect_naive_verdict(bool is_crowded) {
  pw_commit commit = any_edit(is_crowded);
  add_bystanders(commit, *rc::gen::weightedElement<std::uint32_t>({{8, 0}, {1, 96}, {1, 192}, {1, 194}}));
  commit.pseudowires = *rc::gen::weightedElement<std::uint32_t>(
      {{9, static_cast<std::uint32_t>(commit.committing.size())}, {1, 1024}, {1, 1025}});

  const naive::pw_verdict expected = naive::judge(commit);
  RC_CLASSIFY(expected.message.empty(), "accepted");
  RC_CLASSIFY(expected.message.find("unique") != std::string::npos, "second use");
  RC_CLASSIFY(expected.message.find("formerly") != std::string::npos, "take-over");
  RC_LOG() << commit;
  RC_ASSERT(judge(commit) == expected);
}

RC_GTEST_PROP(PseudowireProperty, equals_the_comparison_of_everything_with_everything, ()) {
  expect_naive_verdict(false);
}

RC_GTEST_PROP(PseudowireProperty, equals_it_where_most_pseudowires_meet, ()) { expect_naive_verdict(true); }

}  // namespace
