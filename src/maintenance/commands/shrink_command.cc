#include "maintenance/commands/shrink_command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <memory>

#include "cli/command_line/errors.h"
#include "cli/input/plugin_file.h"
#include "element/input/input_error.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/commands/recorded_question.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/commits/ask.h"
#include "maintenance/commits/commit_folder.h"
#include "maintenance/commits/commit_lines.h"
#include "maintenance/shrinking/same_words.h"
#include "maintenance/shrinking/shrink.h"
#include "report/escape/printable.h"
#include "rules/rule.h"

namespace maintenance {
namespace {

struct ShrinkArguments {
  std::string directory;
  std::string output;
  std::string plugin;
};

std::string first_sentence(const std::string &text) { return text.substr(0, text.find(". ")) + "."; }

/// What stands in story.txt until somebody tells the story.
std::string story_of(const Answer &answer, const std::string &from) {
  if (answer.end != AnswerEnd::answered) return fmt::format("The library {}. Shrunk from {}.\n", answer.failure, from);
  const host::PointVerdict &words = *words_of(answer);
  const rules::Rule *rule = rules::rule_of_message(words.point, words.text);
  const std::string provokes = rule == nullptr ? "" : first_sentence(rule->provokes) + " ";
  return fmt::format("{}Shrunk from {}, which draws {}.\n", provokes, from, rule_id_of(words));
}

void write_example(const ShrunkCommit &shrunk, const Answer &answer, const ShrinkArguments &arguments) {
  try {
    write_commit_folder(shrunk.commit, arguments.output);
    write_text(std::filesystem::path(arguments.output) / "story.txt", story_of(answer, arguments.directory));
  } catch (const std::runtime_error &error) {
    throw cli::OutputError(error.what());
  }
}

/// What a recording knows of a commit need not draw what was recorded.
void require_recorded_words(const std::string &place, const Answer &answer, const std::filesystem::path &library) {
  if (!is_recording(place)) return;
  const Answer recorded = ask_recorded(read_recording(place), library);
  if (!says_something(recorded) || draws_same_words(answer, recorded)) return;
  throw element::InputError(fmt::format("{}: the commit that it makes is another one: {}; expected: {}", place,
                                        words_text(answer), words_text(recorded)));
}

cli::ExitStatus shrink_folder(const ShrinkArguments &arguments, const cli::Environment &environment) {
  const element::Schema schema;
  const Commit whole = read_commit(schema, arguments.directory);
  const std::filesystem::path library = cli::find_plugin_file(arguments.plugin, environment);
  const Answer answer = ask(library, whole);
  require_recorded_words(arguments.directory, answer, library);
  if (!says_something(answer)) {
    throw element::InputError(fmt::format(
        "{}: the commit is accepted without a word; expected one that draws a message", arguments.directory));
  }
  const ShrunkCommit shrunk =
      shrink(whole, [&](const Commit &commit) { return draws_same_words(ask(library, commit), answer); });
  std::ostream &out = environment.out;
  out << report::printable(words_text(answer)) << '\n';
  out << fmt::format("shrunk from {} nodes to {}, {} commits asked about{}\n", shrunk.nodes_before, shrunk.nodes_after,
                     shrunk.questions,
                     shrunk.is_complete ? "" : "; stopped there, for these are all that are asked about");
  out << commit_text(shrunk.commit);
  if (arguments.output.empty()) return cli::ExitStatus::accepted;
  write_example(shrunk, answer, arguments);
  out << fmt::format("written to {}\n", report::printable(arguments.output));
  return cli::ExitStatus::accepted;
}

}  // namespace

void add_shrink(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<ShrinkArguments>();
  command.add_option("DIR", arguments->directory, "Folder as for check, or a recording")->required()->type_name("");
  command.add_option("-o,--output", arguments->output, "Folder for the smallest commit, with a story to be told")
      ->option_text("DIR");
  command.add_option("--plugin", arguments->plugin, "Validation library to ask")->type_name("FILE");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return shrink_folder(*arguments, environment); };
  });
}

}  // namespace maintenance
