#include "host/run/commit.h"

#include "confd_maapi.h"
#include "tests/host/served_element.h"
#include "tests/support/build_under_test.h"

namespace {

using host::Decision;
using host::SeamFunction;

/// Commits to an element with a library that does what the names of new VPWS groups tell it.
class Commit : public host_test::ServedElement {
 protected:
  void add_group(const std::string &told) {
    element::Path group = element::parse_path(host_test::schema(), "/mpls/l2vpn-config/l2vpn/vpws-group{x}");
    group.back().keys = {told};
    candidate.put(element::to_text(group));
  }

  host::Verdict validate(bool all_points = false) {
    const element::Transaction commit(running, candidate);
    return host::validate_commit(plugin, session, commit, {all_points});
  }

  /// The violation of its contract that a library commits when it is told to.
  std::string violation(const std::string &told) {
    candidate = element::Tree(host_test::schema());
    add_group(told);
    try {
      validate();
      return "none";
    } catch (const host::ContractError &error) {
      session.statistics = {};
      return error.what();
    }
  }

  const host::Plugin plugin{scripted_plugin_file()};
};

TEST_F(Commit, without_a_change_asks_nothing) {
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::accepted);
  EXPECT_EQ(verdict.points_fired, 0U);
  EXPECT_EQ(verdict.points.size(), 0U);
}

TEST_F(Commit, is_accepted_where_every_point_accepts) {
  add_group("accept");
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::accepted);
  ASSERT_EQ(verdict.points.size(), 1U);
  EXPECT_EQ(verdict.points[0].point, "vpn_name_valp");
  EXPECT_EQ(verdict.points[0].path, "/mpls/l2vpn-config/l2vpn/vpws-group{accept}");
  EXPECT_EQ(verdict.points[0].answer, host::Answer::accepted);
}

TEST_F(Commit, is_rejected_with_the_text) {
  add_group("reject");
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::rejected);
  ASSERT_EQ(verdict.points.size(), 1U);
  EXPECT_EQ(verdict.points[0].answer, host::Answer::rejected);
  EXPECT_EQ(verdict.points[0].text, "told to reject");
}

TEST_F(Commit, is_accepted_with_a_warnings_text) {
  add_group("warn");
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::accepted_with_warnings);
  EXPECT_EQ(verdict.points.at(0).answer, host::Answer::warned);
  EXPECT_EQ(verdict.points.at(0).text, "told to warn");
}

TEST_F(Commit, a_text_of_an_accepted_point_is_not_shown) {
  add_group("accept with a text");
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::accepted);
  EXPECT_EQ(verdict.points.at(0).text, "");
}

TEST_F(Commit, keeps_no_points_that_accept_where_these_are_not_wanted) {
  add_group("reject");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}");
  const element::Transaction commit(running, candidate);
  const host::Verdict all = host::validate_commit(plugin, session, commit, {.all_points = true});
  const host::Verdict kept =
      host::validate_commit(plugin, session, commit, {.all_points = true, .keep_accepted = false});
  EXPECT_EQ(kept.decision, all.decision);
  EXPECT_EQ(kept.points_fired, all.points_fired);
  EXPECT_EQ(kept.statistics.calls, all.statistics.calls);
  EXPECT_LT(kept.points.size(), all.points.size());
  ASSERT_EQ(kept.points.size(), 1U);
  EXPECT_EQ(kept.points.front().answer, host::Answer::rejected);
  EXPECT_NE(kept.points.front().path, "");
}

TEST_F(Commit, a_rejection_ends_it_unless_all_points_are_asked) {
  add_group("reject");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}");
  const host::Verdict stopped = validate();
  EXPECT_EQ(stopped.points_fired, 2U);
  EXPECT_EQ(stopped.points.size(), 1U);
  const host::Verdict all = validate(true);
  EXPECT_EQ(all.decision, Decision::rejected);
  ASSERT_EQ(all.points.size(), 2U);
  EXPECT_EQ(all.points[1].point, "vpn_overflow_valp");
  EXPECT_EQ(all.points[1].answer, host::Answer::accepted);
}

TEST_F(Commit, a_warning_does_not_end_it) {
  add_group("warn");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}");
  EXPECT_EQ(validate().points.size(), 2U);
}

TEST_F(Commit, each_point_is_told_its_name_its_node_and_the_new_value) {
  add_group("show");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpws-group{show}/vpn{V}/access-interface{I}");
  candidate.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain/access-interface{J}");
  std::vector<std::string> texts;
  for (const host::PointVerdict &point : validate().points) texts.push_back(point.text);
  const std::string vpws = "/mpls/l2vpn-config/l2vpn/vpws-group{show}";
  const std::string vpls = "/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V}/bridge-domain";
  EXPECT_EQ(texts,
            (std::vector<std::string>{"vpn_name_valp at " + vpws + ", new value none",
                                      "vpn_overflow_valp at " + vpws + "/vpn{V}, new value none",
                                      "vpn_access_valp at " + vpws + "/vpn{V}/access-interface{I}, new value none",
                                      "vpn_sp_valp at " + vpws + "/vpn{V}/access-interface{I}, new value none",
                                      "vpn_access_intf_valp at " + vpls + "/access-interface{J}/name, new value J"}));
}

TEST_F(Commit, a_broken_contract_is_named_with_its_point) {
  EXPECT_EQ(violation("accept"), "none");
  EXPECT_EQ(violation("answer 7"), "vpn_name_valp: answered 7; 0, -1 or -3 was expected");
  EXPECT_EQ(violation("answer -2"), "vpn_name_valp: answered -2; 0, -1 or -3 was expected");
  EXPECT_EQ(violation("reject without a text"), "vpn_name_valp: answered -1 without a text");
  EXPECT_EQ(violation("warn without a text"), "vpn_name_valp: answered -3 without a text");
  EXPECT_EQ(violation("throw"), "vpn_name_valp: an exception left the call: told to");
  EXPECT_EQ(violation("allocate too much"), "vpn_name_valp: an exception left the call: std::bad_array_new_length");
  EXPECT_EQ(violation("keep a value"), "vpn_name_valp: values not freed: 1");
  EXPECT_EQ(violation("keep a session"), "vpn_name_valp: CDB sessions left open: 1");
  EXPECT_EQ(violation("free what is its own"), "vpn_name_valp: values freed too often: 1");
}

TEST_F(Commit, a_cursor_left_open_is_closed_and_counted) {
  add_group("keep a cursor");
  const host::Verdict verdict = validate();
  EXPECT_EQ(verdict.decision, Decision::accepted);
  EXPECT_EQ(verdict.statistics.open_cursors, 1);
  session.statistics = {};
}

TEST_F(Commit, the_statistics_are_this_commits_alone) {
  add_group("accept");
  EXPECT_EQ(maapi_exists(sock, thandle, "/internal"), -1);
  validate();
  const host::Verdict verdict = validate();
  const auto calls = [&verdict](SeamFunction function) {
    return verdict.statistics.calls[static_cast<std::size_t>(function)];
  };
  EXPECT_EQ(calls(SeamFunction::qnconfd_maapi_socket_get), 1U);
  EXPECT_EQ(calls(SeamFunction::maapi_exists), 1U);
}

TEST_F(Commit, the_transaction_that_was_served_is_served_again) {
  serve();
  add_group("accept");
  validate();
  EXPECT_EQ(session.transaction(), transaction.get());
  EXPECT_EQ(maapi_exists(sock, thandle, "/mpls/l2vpn-config/l2vpn/vpws-group{accept}"), 0);
}

/// The library that ships reads the card's limit once a process: a test of its own process for each other limit.
class CommitToTheLibrary : public host_test::ServedElement {
 protected:
  CommitToTheLibrary() { profile.card.vpn_max = 3; }

  /// A commit of this many new VPNs of each family.
  host::Verdict validate(int vpls, int vpws) {
    element::Tree proposed(host_test::schema());
    for (int i = 0; i < vpls; ++i) {
      proposed.put("/mpls/l2vpn-config/l2vpn/vpls-group{G}/vpn{V" + std::to_string(i) + "}");
    }
    for (int i = 0; i < vpws; ++i) {
      proposed.put("/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V" + std::to_string(i) + "}");
    }
    const host::Plugin plugin(plugin_file());
    return host::validate_commit(plugin, session, *element::make_transaction(running, proposed, profile));
  }
};

TEST_F(CommitToTheLibrary, as_many_vpns_as_the_card_allows_are_accepted) {
  const host::Verdict verdict = validate(1, 2);
  EXPECT_EQ(verdict.decision, Decision::accepted);
  EXPECT_EQ(verdict.statistics.open_cursors, 0);
}

TEST_F(CommitToTheLibrary, one_vpn_more_is_rejected) {
  const host::Verdict verdict = validate(2, 2);
  EXPECT_EQ(verdict.decision, Decision::rejected);
  EXPECT_EQ(verdict.points.back().point, "vpn_overflow_valp");
  EXPECT_EQ(verdict.points.back().path, "/mpls/l2vpn-config/l2vpn/vpws-group{G}/vpn{V0}");
  EXPECT_EQ(verdict.points.back().text,
            "Maximum number of VPNs has been exceeded. Attempt to configure 4 of 3 allowed");
}

TEST_F(Commit, lists_the_questions_that_a_name_makes_unreadable) {
  add_group("ask");
  EXPECT_EQ(validate().unreadable.size(), 0U) << "a path that no name made unreadable is not listed";

  for (const std::string &name :
       {std::string("ask twice"), std::string("ask}"), std::string("\"ask\""), "ask" + std::string(600, 'x')}) {
    candidate = element::Tree(host_test::schema());
    add_group(name);
    const host::Verdict verdict = validate();
    ASSERT_EQ(verdict.unreadable.size(), 1U) << name;
    const host::UnreadableQuestion &question = verdict.unreadable[0];
    EXPECT_EQ(question.point, "vpn_name_valp");
    EXPECT_EQ(question.function, "maapi_exists");
    EXPECT_EQ(question.path, ("/mpls/l2vpn-config/l2vpn/vpws-group{" + name + "}").substr(0, 511));
    EXPECT_EQ(question.name, name);
  }
}

}  // namespace
