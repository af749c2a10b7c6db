#include "maintenance/commands/corpus_source.h"

#include <fmt/format.h>

#include <filesystem>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/commands/recorded_question.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/generator/draw_commit.h"

namespace maintenance {

namespace fs = std::filesystem;

Corpus find_corpus(const CorpusArguments &arguments, const element::Schema &schema) {
  std::vector<std::string> folders;
  std::vector<std::string> recordings;
  for (const std::string &place : arguments.places) {
    if (is_recording(place)) {
      read_recording(place);
      recordings.push_back(place);
      continue;
    }
    const std::vector<std::string> found = commit_folders(place);
    folders.insert(folders.end(), found.begin(), found.end());
  }
  const std::size_t commits = folders.size() + arguments.random;
  if (commits + recordings.size() == 0) throw cli::UsageError("no corpus; expected CORPUS... or --random N");
  const std::uint64_t seed = arguments.seed;
  const auto commit = [folders, seed, &schema](std::size_t number) {
    return number < folders.size() ? read_commit(schema, folders[number])
                                   : draw_commit(schema, seed + (number - folders.size()));
  };
  const auto ask_again = [recordings](std::size_t number, const fs::path &library) {
    return ask_recorded(read_recording(recordings[number]), library);
  };
  const auto known_commit = [recordings, &schema](std::size_t number) -> std::optional<Commit> {
    try {
      return read_commit(schema, recordings[number]);
    } catch (const element::InputError &) {
      return std::nullopt;  // it is shown as it was recorded
    }
  };
  const auto name = [folders, recordings, seed, commits](std::size_t number) {
    if (number >= commits) return recordings[number - commits];
    if (number < folders.size()) return folders[number];
    return fmt::format("random commit of seed {}", seed + (number - folders.size()));
  };
  return {{commits, commit}, {recordings.size(), ask_again, known_commit}, name};
}

}  // namespace maintenance
