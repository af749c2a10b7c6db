#include "maintenance/coverage/survey.h"

#include <algorithm>
#include <map>
#include <sstream>
#include <tuple>
#include <vector>

#include "element/datastore/transaction.h"
#include "maintenance/cost/child_text.h"
#include "maintenance/cost/library_steps.h"
#include "report/check_report.h"
#include "rules/rule.h"

namespace coverage {
namespace {

using host::SeamFunction;

/// A function without a result cannot.
bool can_fail(SeamFunction function) {
  const auto without_result = {SeamFunction::confd_free_value, SeamFunction::confd_trans_seterr,
                               SeamFunction::maapi_destroy_cursor, SeamFunction::cdb_session_end, SeamFunction::zlog};
  return std::find(without_result.begin(), without_result.end(), function) == without_result.end();
}

/// A platform call that is made to fail.
struct SurveyedCall {
  std::uint64_t question = 0;  ///< of the commit, from 1
  std::string point;
  std::string step;
  SeamFunction function = SeamFunction::count;
  std::uint64_t nth = 0;  ///< use of the function in the whole commit
  std::size_t use = 0;    ///< by this step in this question
};

const char *use_name(std::size_t use) { return use == 1 ? "1st" : use == 2 ? "2nd" : "later"; }

constexpr std::size_t kLastUse = 3;

/// First character of the line that is written before a call is made to fail.
constexpr char kTry = '?';

class Survey {
 public:
  Survey(const std::filesystem::path &library, const maintenance::Commit &commit)
      : session_(*commit.profile),
        plugin_(library),
        steps_(plugin_.file()),
        transaction_(element::make_transaction(commit.running, commit.candidate, *commit.profile)) {
    // Limits that the library reads once in a process are read now, so that no commit differs by them.
    host::validate_commit(plugin_, session_, *transaction_, kAll);
  }

  /// Writes lines of cells: with `from` 0 those of the commit as it is; then, from the call with number `from` on, two
  /// for each call that can fail. The first one, marked kTry, holds where the library ends the process at that call.
  void run(std::size_t from, const cost::Write &write) {
    const std::vector<SurveyedCall> calls = list_calls();
    if (from == 0) {
      for (const Cell &cell : cells_) write(to_line(cell) + '\n');
    }
    for (std::size_t i = from; i < calls.size(); ++i) {
      write(kTry + to_line(cell_of(calls[i], "stopped")) + '\n');
      drawn_.clear();
      write(to_line(cell_of(calls[i], outcome_at(calls[i]))) + '\n');
      if (!drawn_.empty()) write(to_line({drawn_, "", "", "", "", "draws-on-failure"}) + '\n');
    }
  }

 private:
  static constexpr host::CommitOptions kAll{.all_points = true, .keep_accepted = true};

  std::vector<SurveyedCall> list_calls() {
    std::vector<SurveyedCall> calls;
    std::map<SeamFunction, std::uint64_t> uses;
    std::map<std::tuple<std::uint64_t, std::string, SeamFunction>, std::size_t> uses_by_step;
    const std::uint64_t before = session_.question.number;
    session_.on_call = [&](SeamFunction function) {
      SurveyedCall call{session_.question.number - before, session_.question.point, steps_.current(), function, 0, 0};
      call.nth = ++uses[function];
      call.use = ++uses_by_step[{call.question, call.step, function}];
      if (can_fail(function) && call.use <= kLastUse) calls.push_back(std::move(call));
    };
    const host::Verdict verdict = host::validate_commit(plugin_, session_, *transaction_, kAll);
    session_.on_call = nullptr;
    for (const host::PointVerdict &point : verdict.points) add_rules(point);
    return calls;
  }

  void add_rules(const host::PointVerdict &point) {
    const rules::Rule *drawn = rules::rule_of_message(point.point, point.text);
    if (drawn != nullptr) cells_.insert({drawn->id, "", "", "", "", "draws"});
    if (point.answer != host::Answer::accepted) return;
    for (const rules::Rule &rule : rules::all_rules()) {
      if (rule.point == point.point) cells_.insert({rule.id, "", "", "", "", "passes"});
    }
  }

  static Cell cell_of(const SurveyedCall &call, const std::string &outcome) {
    return {"", call.point, call.step, std::string(host::name(call.function)), use_name(call.use), outcome};
  }

  std::string outcome_at(const SurveyedCall &call) {
    session_.injected_failure = {call.function, call.nth, false};
    const std::string outcome = outcome_of(call.question);
    session_.injected_failure = {};
    return outcome;
  }

  std::string outcome_of(std::uint64_t question) {
    try {
      const host::Verdict verdict = host::validate_commit(plugin_, session_, *transaction_, kAll);
      const host::PointVerdict &point = verdict.points.at(question - 1);
      if (const rules::Rule *drawn = rules::rule_of_message(point.point, point.text)) drawn_ = drawn->id;
      return std::string(report::answer_text(point));
    } catch (const host::ContractError &) {
      return "stopped";
    }
  }

  host::HostSession session_;
  host::Plugin plugin_;
  cost::LibrarySteps steps_;
  std::unique_ptr<element::Transaction> transaction_;
  Cells cells_;
  std::string drawn_;  ///< id of the rule whose message a failed call drew; empty: of none
};

}  // namespace

Cells cells_of(const std::filesystem::path &library, const maintenance::Commit &commit) {
  Cells cells;
  std::size_t tried = 0;
  for (bool has_died = true; has_died;) {
    const cost::ChildOutput output =
        cost::output_of_child([&](const cost::Write &write) { Survey(library, commit).run(tried, write); });
    has_died = output.has_died;
    std::istringstream lines(output.text);
    std::string last_try;
    const std::size_t before = tried;
    for (std::string line; std::getline(lines, line);) {
      const bool is_try = line.starts_with(kTry);
      if (is_try) {
        ++tried;
        last_try = line.substr(1);
      } else {
        cells.insert(cell_from(line, "survey"));
        last_try.clear();
      }
    }
    if (!has_died) break;
    if (tried == before) throw std::runtime_error("the library ended the process that asked it");
    cells.insert(cell_from(last_try, "survey"));
  }
  return cells;
}

}  // namespace coverage
