#include "maintenance/commands/diff_command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <map>
#include <memory>
#include <sstream>
#include <thread>

#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "cli/terminal/progress.h"
#include "maintenance/commands/corpus_source.h"
#include "maintenance/commits/commit_folder.h"
#include "maintenance/comparison/compare.h"
#include "report/escape/printable.h"

namespace maintenance {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t kMostJobs = 256;

using Write = void (*)(std::ostream &, const Comparison &);
const std::map<std::string, Write> formats{
    {"text", write_text}, {"json", write_json}, {"junit", write_junit}, {"markdown", write_markdown}};

struct DiffArguments {
  std::vector<std::string> libraries;  ///< OLD, NEW
  CorpusArguments corpus;
  CompareOptions options;
  std::vector<std::string> accepted;  ///< files
  std::size_t jobs = 0;               ///< 0: as many as there are processors
  Write write = write_text;
  std::string output;
  std::string examples;  ///< a folder
};

/// Of the commits that show changes, a folder each; the number keeps two directions of a rule apart.
void write_examples(const Comparison &comparison, const std::string &folder) {
  if (folder.empty()) return;
  std::size_t number = 0;
  try {
    for (const ChangeGroup &group : comparison.groups) {
      ++number;
      if (!group.shown || !group.shown->commit) continue;
      write_commit_folder(*group.shown->commit, fs::path(folder) / fmt::format("{}-{}", number, group.change.rule));
    }
  } catch (const std::runtime_error &error) {
    throw cli::OutputError(error.what());
  }
}

cli::ExitStatus status_of(const Comparison &comparison, const cli::Environment &environment) {
  if (comparison.is_void()) {
    environment.err << "vpnval: comparison is void: OLD gives two answers to "
                    << report::printable(comparison.first_unsteady) << '\n';
    return cli::ExitStatus::internal;
  }
  if (comparison.groups.empty()) {
    return comparison.corpus.not_decided == 0 ? cli::ExitStatus::accepted : cli::ExitStatus::bad_input;
  }
  return comparison.is_all_accepted() ? cli::ExitStatus::accepted_with_warnings : cli::ExitStatus::rejected;
}

cli::ExitStatus diff(const DiffArguments &arguments, const cli::Environment &environment) {
  const std::size_t given = arguments.libraries.size();
  if (given != 2) {
    throw cli::UsageError(
        fmt::format("--plugin is given {}; expected two libraries to compare, --plugin OLD --plugin NEW",
                    given == 1 ? "once" : fmt::format("{} times", given)));
  }
  AcceptedChanges accepted;
  for (const std::string &file : arguments.accepted) accepted.read(file);
  const element::Schema schema;
  const Corpus corpus = find_corpus(arguments.corpus, schema);
  cli::Progress progress(environment.err, environment.err_is_terminal, environment.clock);
  const CompareTask task{
      .old_library = arguments.libraries[0],
      .new_library = arguments.libraries[1],
      .corpus = corpus,
      .options = arguments.options,
      .jobs = arguments.jobs != 0 ? arguments.jobs : std::max(std::thread::hardware_concurrency(), 1U),
      .progress = [&](std::size_t compared) {
        progress.update([&] { return fmt::format("comparing: {} of {} commits", compared, corpus.size()); });
      }};
  const Comparison comparison = compare(task, accepted);
  progress.clear();
  std::ostringstream text;
  text.exceptions(std::ios::badbit);  // else it would be cut where memory runs out
  arguments.write(text, comparison);
  cli::write_whole(arguments.output, environment.out, text.str());
  write_examples(comparison, arguments.examples);
  return status_of(comparison, environment);
}

void add_corpus_options(CLI::App &command, CorpusArguments &corpus) {
  command
      .add_option("CORPUS", corpus.places,
                  "Folders of commits as for check, folders that hold such folders, recordings")
      ->type_name("");
  command.add_option("--random", corpus.random, "Add so many drawn commits, valid and faulty")->type_name("N");
  command.add_option("--seed", corpus.seed, "Seed of the first drawn commit; 1 unless it is given")->type_name("S");
}

void add_options(CLI::App &command, DiffArguments &arguments) {
  command.add_option("--plugin", arguments.libraries, "Validation library; the first one is OLD, the second one NEW")
      ->allow_extra_args(false)
      ->required()
      ->type_name("FILE");
  add_corpus_options(command, arguments.corpus);
  command.add_flag("--trace", arguments.options.trace, "Compare what the libraries write to their trace, too");
  command.add_flag("--calls", arguments.options.calls, "Compare how often each platform function is called, too");
  command
      .add_option("--accept", arguments.accepted,
                  "File of changes that are meant, a line each: RULE DIRECTION # REASON; may be given many times")
      ->allow_extra_args(false)
      ->type_name("FILE");
  command
      .add_option("--jobs", arguments.jobs,
                  "Ask so many processes at once; as many as there are processors unless it is given")
      ->check(CLI::Range(std::size_t{1}, kMostJobs))
      ->type_name("N");
  cli::add_choice(command, "--format", formats, arguments.write, "Format of the result; text unless it is given");
  command.add_option("-o,--output", arguments.output, "Write the result to FILE instead of standard output")
      ->option_text("FILE");
  command
      .add_option("--examples", arguments.examples, "Write the shrunk commit of each change there, in a folder each")
      ->option_text("DIR");
}

}  // namespace

void add_diff(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<DiffArguments>();
  add_options(command, *arguments);
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return diff(*arguments, environment); };
  });
}

}  // namespace maintenance
