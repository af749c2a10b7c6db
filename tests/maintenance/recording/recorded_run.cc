#include "tests/maintenance/recording/recorded_run.h"

#include <fmt/format.h>

#include <map>

#include "cli/input/commit_input.h"
#include "host/run/commit.h"
#include "maintenance/recording/decode.h"
#include "maintenance/recording/encode.h"
#include "maintenance/replay/replay.h"
#include "maintenance/transcript/anonymise.h"
#include "maintenance/transcript/json.h"
#include "maintenance/transcript/replay_report.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/file_content.h"

namespace {

using recording::Recording;

/// A verdict with all that the platform saw of it.
std::string shown(const host::Verdict &verdict) {
  std::string text = fmt::format("decision {}\n", static_cast<int>(verdict.decision));
  for (const host::PointVerdict &point : verdict.points) {
    text += fmt::format("{} {} {} {}\n", point.point, point.path, static_cast<int>(point.answer), point.text);
  }
  const host::CallStatistics &statistics = verdict.statistics;
  for (std::size_t i = 0; i < statistics.calls.size(); ++i) {
    text += fmt::format("{} {}\n", host::name(static_cast<host::SeamFunction>(i)), statistics.calls[i]);
  }
  for (const std::string &line : statistics.trace) text += line + "\n";
  return text + fmt::format("left open {} {} {}, {} unreadable\n", statistics.open_cursors, statistics.open_sessions,
                            statistics.owned_values, statistics.unreadable_paths.size());
}

void count(const std::vector<recording::Call> &calls, std::map<std::string, std::uint64_t> &counts) {
  for (const recording::Call &call : calls) {
    ++counts[std::string(recording::name(call.function))];
    for (const recording::Callback &callback : call.callbacks) count(callback.calls, counts);
  }
}

class Comparison {
 public:
  Comparison(const element::Schema &schema, const RecorderFolder &folder)
      : schema_(schema),
        folder_(folder),
        plain_(plugin_file()),
        recorded_(folder.library()),
        replayed_(folder.path() / "replayed.so") {
    std::filesystem::copy_file(hookable_file(), replayed_);
  }

  void compare(host::HostSession &session, const NamedCommit &commit) {
    name_ = commit.name;
    session.injected_failure = commit.failure;
    const host::CommitOptions options{.all_points = true};
    const host::Verdict plain = host::validate_commit(plain_, session, *commit.transaction, options);
    const host::Verdict recorded = host::validate_commit(recorded_, session, *commit.transaction, options);
    if (shown(plain) != shown(recorded)) differ("unrecorded:\n" + shown(plain) + "recorded:\n" + shown(recorded));
    const std::vector<Recording> recordings = read_recordings();
    compare(recorded, recordings);
    if (commit.is_replayed) {
      for (const Recording &recording : recordings) replay(recording);
    }
    folder_.remove_recordings();
  }

  std::vector<std::string> take() { return std::move(differences_); }

 private:
  void differ(const std::string &what) { differences_.push_back(name_ + ": " + what); }

  std::vector<Recording> read_recordings() {
    std::vector<Recording> recordings;
    for (const std::filesystem::path &file : folder_.recordings()) {
      const std::string bytes = content_of(file);
      recordings.push_back(recording::decode(bytes));
      if (recording::encode(recordings.back()) != bytes) differ(file.filename().string() + " is encoded otherwise");
    }
    return recordings;
  }

  void compare(const host::Verdict &verdict, const std::vector<Recording> &recordings) {
    if (recordings.size() != verdict.points.size()) return differ(fmt::format("{} recordings", recordings.size()));
    std::map<std::string, std::uint64_t> counts;
    for (std::size_t i = 0; i < recordings.size(); ++i) {
      const Recording &recording = recordings[i];
      const host::PointVerdict &point = verdict.points[i];
      constexpr std::array<std::int64_t, 3> kAnswers{0, -3, -1};
      if (recording.header.point != point.point) differ("another point: " + recording.header.point);
      if (recording.trailer.verdict != kAnswers.at(static_cast<std::size_t>(point.answer))) differ("another verdict");
      if (recording.trailer.message.value_or("") != point.text) differ("another message");
      count(recording.calls, counts);
    }
    for (std::size_t i = 0; i < verdict.statistics.calls.size(); ++i) {
      const std::string name(host::name(static_cast<host::SeamFunction>(i)));
      if (counts[name] != verdict.statistics.calls[i]) differ(fmt::format("{} calls of {}", counts[name], name));
    }
  }

  void replay(const Recording &recording) {
    require_same(recording, "");
    if (recording::encode(transcript::from_json(transcript::to_json(recording))) != recording::encode(recording)) {
      differ("JSON is read as another recording");
    }
    Recording anonymous = recording;
    transcript::anonymise(anonymous, schema_);
    require_same(anonymous, "anonymised, ");
  }

  void require_same(const Recording &recording, const std::string &how) {
    const replay::Outcome outcome = replay::replay(recording, replayed_);
    if (outcome.is_same_as(recording)) return;
    differ(how + recording.header.point + ": " + transcript::replay_text(recording, outcome));
  }

  const element::Schema &schema_;
  const RecorderFolder &folder_;
  const host::Plugin plain_;
  const host::Plugin recorded_;
  std::filesystem::path replayed_;
  std::string name_;
  std::vector<std::string> differences_;
};

}  // namespace

std::vector<std::string> differences(const element::Schema &schema, const element::Profile &profile,
                                     const std::vector<NamedCommit> &commits) {
  const RecorderFolder folder(hookable_file());
  return told_apart([&] {
    host::HostSession session(profile);
    Comparison comparison(schema, folder);
    for (const NamedCommit &commit : commits) comparison.compare(session, commit);
    return comparison.take();
  });
}

NamedCommit example(const element::Schema &schema, const std::string &name,
                    std::unique_ptr<element::Profile> &profile) {
  cli::InputArguments arguments;
  arguments.directory = SOURCE_DIR "/examples/" + name;
  const cli::InputFiles files = cli::find_input_files(arguments);
  element::ConfigurationFile running{element::Tree(schema), {}};
  if (!files.running.empty()) running = element::read_configuration_file(schema, files.running, {});
  element::ConfigurationFile candidate = cli::read_candidate(schema, running, files, {});
  profile = std::make_unique<element::Profile>(element::read_profile(files.element));
  return {name, element::make_transaction(std::move(running.tree), std::move(candidate.tree), *profile)};
}

std::vector<Recording> recordings_of(const element::Schema &schema, const std::string &name) {
  const RecorderFolder folder(hookable_file());
  std::unique_ptr<element::Profile> profile;
  const NamedCommit commit = example(schema, name, profile);
  told_apart([&] {
    host::HostSession session(*profile);
    const host::Plugin plugin(folder.library());
    host::validate_commit(plugin, session, *commit.transaction, {.all_points = true});
    return std::vector<std::string>();
  });
  std::vector<Recording> recordings;
  for (const std::filesystem::path &file : folder.recordings()) {
    recordings.push_back(recording::decode(content_of(file)));
  }
  return recordings;
}
