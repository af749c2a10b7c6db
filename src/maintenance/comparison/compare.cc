#include "maintenance/comparison/compare.h"

#include <algorithm>
#include <utility>

#include "host/run/build_id.h"
#include "maintenance/shrinking/configuration_nodes.h"
#include "maintenance/shrinking/shrink.h"
#include "rules/rule.h"

namespace maintenance {
namespace {

constexpr std::size_t kMostAtOnce = 4096;
constexpr std::size_t kMostExamples = 8;  // of which the smallest is shrunk
// The larger a commit is, the longer each question takes; of a limit's example hardly anything can be left out.
constexpr std::size_t kMostShrinkQuestions = 250;
constexpr std::size_t kMostNodesAskedAbout = 100'000;

struct Found {
  std::size_t commits = 0;
  std::vector<std::size_t> examples;  ///< numbers of the first ones
};

/// Position of the change's rule in the list of rules; behind all of them for what is no rule.
std::size_t place_of(const AnswerChange &change) {
  const auto &rules = rules::all_rules();
  const auto rule = std::find_if(rules.begin(), rules.end(), [&](const auto &each) { return each.id == change.rule; });
  return static_cast<std::size_t>(rule - rules.begin());
}

class Comparing {
 public:
  Comparing(const CompareTask &task, AcceptedChanges &accepted) : task_(task), accepted_(accepted) {
    result_.old_library = {task.old_library.string(), host::build_id(task.old_library)};
    result_.new_library = {task.new_library.string(), host::build_id(task.new_library)};
  }

  Comparison run() {
    for (std::size_t begin = 0; begin < task_.corpus.row.size; begin += kMostAtOnce) {
      compare_some(begin, std::min(begin + kMostAtOnce, task_.corpus.row.size));
    }
    for (std::size_t i = 0; i < task_.corpus.recorded.size; ++i) compare_recorded(i);
    for (const auto &[change, found] : found_) add_group(change, found);
    std::stable_sort(result_.groups.begin(), result_.groups.end(),
                     [](const auto &a, const auto &b) { return place_of(a.change) < place_of(b.change); });
    result_.unused_lines = accepted_.unused();
    return std::move(result_);
  }

 private:
  std::vector<Answer> answers(const std::filesystem::path &library, std::size_t begin, std::size_t end) const {
    const CommitRow row{end - begin, [&](std::size_t number) { return task_.corpus.row.commit(begin + number); }};
    return ask_all(library, row, {.jobs = task_.jobs, .progress = [&](std::size_t) { task_.progress(begin); }});
  }

  void compare_some(std::size_t begin, std::size_t end) {
    const std::vector<Answer> before = answers(task_.old_library, begin, end);
    const std::vector<Answer> again = answers(task_.old_library, begin, end);
    const std::vector<Answer> after = answers(task_.new_library, begin, end);
    for (std::size_t i = 0; i < before.size(); ++i) add(begin + i, before[i], again[i], after[i]);
  }

  void compare_recorded(std::size_t number) {
    const auto ask_library = [&](const std::filesystem::path &library) {
      return task_.corpus.recorded.ask(number, library);
    };
    const Answer before = ask_library(task_.old_library);
    const Answer again = ask_library(task_.old_library);
    add(task_.corpus.row.size + number, before, again, ask_library(task_.new_library));
    task_.progress(task_.corpus.row.size + number);
  }

  void add(std::size_t number, const Answer &before, const Answer &again, const Answer &after) {
    result_.corpus.add(before);
    if (!changes_between(before, again, task_.options).empty()) {
      if (result_.unsteady++ == 0) result_.first_unsteady = task_.corpus.name(number);
    }
    add_changes(number, before, after);
  }

  void add_changes(std::size_t number, const Answer &before, const Answer &after) {
    const std::vector<AnswerChange> changes = changes_between(before, after, task_.options);
    if (changes.empty()) return;
    ++result_.changed;
    ++result_.directions[verdict_direction(before, after)];
    for (const AnswerChange &change : changes) {
      Found &found = found_[change];
      ++found.commits;
      if (found.examples.size() < kMostExamples) found.examples.push_back(number);
    }
  }

  void add_group(const AnswerChange &change, const Found &found) {
    ChangeGroup group{change, found.commits, accepted_.reason_of(change), std::nullopt};
    // Of a library that contradicts itself, an answer to a smaller commit would show nothing.
    if (!result_.is_void()) group.shown = shown(change, found.examples);
    result_.groups.push_back(std::move(group));
  }

  /// The smallest of the examples, shrunk; a recorded question only where no commit shows the change. In a corpus, the
  /// commits come before the recorded questions.
  ShownChange shown(const AnswerChange &change, const std::vector<std::size_t> &examples) const {
    const std::size_t commits = task_.corpus.row.size;
    if (examples.front() >= commits) return recorded(change, examples.front());
    std::vector<std::size_t> of_commits = examples;
    std::erase_if(of_commits, [commits](std::size_t number) { return number >= commits; });
    return smallest(change, of_commits);
  }

  ShownChange recorded(const AnswerChange &change, std::size_t number) const {
    const std::size_t place = number - task_.corpus.row.size;
    const std::optional<Commit> commit = task_.corpus.recorded.commit(place);
    if (commit && shows(*commit, change)) return shrunk(number, *commit, change);
    const Answer before = task_.corpus.recorded.ask(place, task_.old_library);
    const Answer after = task_.corpus.recorded.ask(place, task_.new_library);
    return with_lines({task_.corpus.name(number), std::nullopt}, before, after);
  }

  ShownChange smallest(const AnswerChange &change, const std::vector<std::size_t> &examples) const {
    const auto size_of = [&](std::size_t number) { return count_nodes(task_.corpus.row.commit(number)); };
    const std::size_t number = *std::min_element(examples.begin(), examples.end(),
                                                 [&](std::size_t a, std::size_t b) { return size_of(a) < size_of(b); });
    return shrunk(number, task_.corpus.row.commit(number), change);
  }

  bool shows(const Commit &commit, const AnswerChange &change) const {
    const auto changes = changes_between(ask(task_.old_library, commit), ask(task_.new_library, commit), task_.options);
    return std::find(changes.begin(), changes.end(), change) != changes.end();
  }

  ShownChange shrunk(std::size_t number, const Commit &whole, const AnswerChange &change) const {
    const std::size_t questions = std::min(kMostShrinkQuestions, 1 + kMostNodesAskedAbout / (1 + count_nodes(whole)));
    ShrunkCommit small = shrink(
        whole, [&](const Commit &commit) { return shows(commit, change); }, questions);
    const Answer before = ask(task_.old_library, small.commit);
    const Answer after = ask(task_.new_library, small.commit);
    return with_lines({task_.corpus.name(number), std::move(small.commit), small.nodes_before, small.nodes_after},
                      before, after);
  }

  ShownChange with_lines(ShownChange shown, const Answer &before, const Answer &after) const {
    shown.old_lines = differing_lines(before, after, task_.options);
    shown.new_lines = differing_lines(after, before, task_.options);
    return shown;
  }

  const CompareTask &task_;
  AcceptedChanges &accepted_;
  Comparison result_;
  std::map<AnswerChange, Found> found_;
};

}  // namespace

bool Comparison::is_all_accepted() const {
  return std::all_of(groups.begin(), groups.end(), [](const ChangeGroup &group) { return !group.reason.empty(); });
}

Comparison compare(const CompareTask &task, AcceptedChanges &accepted) { return Comparing(task, accepted).run(); }

}  // namespace maintenance
