#include "maintenance/commands/corpus_source.h"

#include <fmt/format.h>

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/commands/recorded_question.h"
#include "maintenance/commands/recording_file.h"
#include "maintenance/generator/draw_commit.h"

namespace maintenance {

namespace fs = std::filesystem;

namespace {

/// What the corpus is made of, numbered in this order: folders, drawn commits, recordings. Nothing of it is in memory.
class Places {
 public:
  Places(const CorpusArguments &arguments, const element::Schema &schema)
      : drawn_(arguments.random), seed_(arguments.seed), schema_(schema) {
    for (const std::string &place : arguments.places) add(place);
  }

  std::size_t commits() const { return folders_.size() + drawn_; }
  std::size_t recordings() const { return recordings_.size(); }

  Commit commit(std::size_t number) const {
    return number < folders_.size() ? read_commit(schema_, folders_[number]) : draw_commit(schema_, seed_of(number));
  }

  Answer recorded_answer(std::size_t recording, const fs::path &library) const {
    return ask_recorded(read_recording(recordings_[recording]), library);
  }

  /// None where the recording does not know enough of its commit.
  std::optional<Commit> recorded_commit(std::size_t recording) const {
    try {
      return read_commit(schema_, recordings_[recording]);
    } catch (const element::InputError &) {
      return std::nullopt;
    }
  }

  std::string name(std::size_t number) const {
    if (number >= commits()) return recordings_[number - commits()];
    return number < folders_.size() ? folders_[number] : fmt::format("random commit of seed {}", seed_of(number));
  }

 private:
  /// A recording is read once, so that one that is none is told before anything is compared.
  void add(const std::string &place) {
    if (is_recording(place)) {
      read_recording(place);
      recordings_.push_back(place);
      return;
    }
    const std::vector<std::string> found = commit_folders(place);
    folders_.insert(folders_.end(), found.begin(), found.end());
  }

  std::uint64_t seed_of(std::size_t number) const { return seed_ + (number - folders_.size()); }

  std::vector<std::string> folders_;
  std::vector<std::string> recordings_;
  std::size_t drawn_;
  std::uint64_t seed_;
  const element::Schema &schema_;
};

}  // namespace

Corpus find_corpus(const CorpusArguments &arguments, const element::Schema &schema) {
  const auto places = std::make_shared<const Places>(arguments, schema);
  if (places->commits() + places->recordings() == 0) {
    throw cli::UsageError("no corpus; expected CORPUS... or --random N");
  }
  const CommitRow commits{places->commits(), [places](std::size_t number) { return places->commit(number); }};
  const RecordedRow recorded{
      places->recordings(),
      [places](std::size_t number, const fs::path &library) { return places->recorded_answer(number, library); },
      [places](std::size_t number) { return places->recorded_commit(number); }};
  return {commits, recorded, [places](std::size_t number) { return places->name(number); }};
}

}  // namespace maintenance
