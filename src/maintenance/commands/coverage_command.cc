#include "maintenance/commands/coverage_command.h"

#include <fmt/format.h>

#include <CLI/CLI.hpp>
#include <algorithm>
#include <filesystem>
#include <map>
#include <memory>
#include <optional>

#include "cli/command_line/choice.h"
#include "cli/command_line/errors.h"
#include "cli/input/plugin_file.h"
#include "cli/terminal/progress.h"
#include "cli/terminal/wrapped_stream.h"
#include "element/input/input_error.h"
#include "host/run/build_id.h"
#include "maintenance/commands/commit_source.h"
#include "maintenance/commits/commit_folder.h"
#include "maintenance/coverage/coverage_report.h"
#include "maintenance/coverage/survey.h"
#include "maintenance/generator/draw_commit.h"

namespace maintenance {
namespace {

namespace fs = std::filesystem;

enum class CoverageFormat { text, json, html, cells };

struct CoverageArguments {
  std::vector<std::string> corpus;
  std::size_t random = 0;    ///< so many drawn commits are part of the corpus
  std::uint64_t seed = 0;    ///< of the first commit that is drawn
  std::string expect;        ///< a file of cells; empty: the rules' alone
  std::string fill;          ///< a folder for commits that fill empty cells; empty: they are not searched for
  std::size_t drawn = 1000;  ///< commits that the search for them draws at most
  std::string plugin;
  CoverageFormat format = CoverageFormat::text;
};

class CoverageRun {
 public:
  CoverageRun(const CoverageArguments &arguments, const cli::Environment &environment)
      : arguments_(arguments),
        library_(cli::find_plugin_file(arguments.plugin, environment)),
        progress_(environment.err, environment.err_is_terminal, environment.clock) {
    report_.plugin_file = library_.string();
    report_.build_id = host::build_id(library_);
    report_.expected = arguments.expect.empty() ? coverage::rule_cells() : coverage::read_cells(arguments.expect);
  }

  const coverage::CoverageReport &run() {
    for (const std::string &name : arguments_.corpus) {
      for (const std::string &folder : commit_folders(name)) survey(folder, read_commit(schema_, folder));
    }
    for (std::size_t i = 0; i < arguments_.random; ++i) {
      survey(fmt::format("seed {}", next_seed_), draw_commit(schema_, next_seed_));
      ++next_seed_;
    }
    if (!arguments_.fill.empty()) fill();
    return report_;
  }

 private:
  void survey(const std::string &name, const Commit &commit) {
    progress_.update([this] { return fmt::format("{} commits", report_.commits + report_.drawn); });
    report_.add(name, coverage::cells_of(library_, commit));
  }

  using SeedCells = std::map<std::uint64_t, coverage::Cells>;

  /// Draws commits until each empty cell has one, and writes a few of them that fill all cells which can be filled
  /// (greedy set cover).
  void fill() {
    const coverage::Cells empty = report_.empty();
    const SeedCells drawn = draw_for(empty);
    coverage::Cells left = empty;
    while (const auto best = best_of(drawn, left)) {
      const std::string folder = (fs::path(arguments_.fill) / fmt::format("seed-{}", *best)).string();
      for (const coverage::Cell &cell : drawn.at(*best)) {
        if (left.erase(cell) != 0) report_.found.push_back({cell, folder});
      }
      write_commit_folder(draw_commit(schema_, *best), folder);
    }
  }

  /// Commits that fill empty cells, by seed, with the cells. Once every cell has one, as many again are drawn, because
  /// one commit that fills many cells is better than many that fill one each.
  SeedCells draw_for(const coverage::Cells &empty) {
    SeedCells useful;
    coverage::Cells left = empty;
    for (std::size_t enough = arguments_.drawn; report_.drawn < enough; ++next_seed_) {
      progress_.update([&] { return fmt::format("{} drawn, {} cells empty", report_.drawn, left.size()); });
      ++report_.drawn;
      coverage::Cells filled;
      for (const coverage::Cell &cell : coverage::cells_of(library_, draw_commit(schema_, next_seed_))) {
        if (empty.contains(cell)) filled.insert(cell);
      }
      const bool was_left = !left.empty();
      for (const coverage::Cell &cell : filled) left.erase(cell);
      if (was_left && left.empty()) enough = std::min(enough, 2 * report_.drawn);
      if (!filled.empty()) useful.emplace(next_seed_, std::move(filled));
    }
    return useful;
  }

  /// The seed whose commit fills most of the cells.
  static std::optional<std::uint64_t> best_of(const SeedCells &drawn, const coverage::Cells &left) {
    std::optional<std::uint64_t> best;
    std::ptrdiff_t most = 0;
    for (const auto &[seed, cells] : drawn) {
      const auto count =
          std::count_if(cells.begin(), cells.end(), [&left](const auto &cell) { return left.contains(cell); });
      if (count <= most) continue;
      most = count;
      best = seed;
    }
    return best;
  }

  const CoverageArguments &arguments_;
  const element::Schema schema_;
  fs::path library_;
  cli::Progress progress_;
  std::uint64_t next_seed_ = arguments_.seed;
  coverage::CoverageReport report_;
};

cli::ExitStatus tell_coverage(const CoverageArguments &arguments, const cli::Environment &environment) {
  if (arguments.corpus.empty() && arguments.random == 0) {
    throw cli::UsageError("no corpus; expected folders of commits, or --random N");
  }
  CoverageRun run(arguments, environment);
  const coverage::CoverageReport &report = run.run();
  const bool is_text = arguments.format == CoverageFormat::text;
  cli::WrappedStream out(environment.out, is_text ? environment.columns : 0);
  switch (arguments.format) {
    case CoverageFormat::text:
      coverage::write_text(out, report);
      break;
    case CoverageFormat::json:
      coverage::write_json(out, report);
      break;
    case CoverageFormat::html:
      coverage::write_page(out, report);
      break;
    case CoverageFormat::cells:
      coverage::write_cells(out, report);
      break;
  }
  return report.empty().empty() ? cli::ExitStatus::accepted : cli::ExitStatus::rejected;
}

const std::map<std::string, CoverageFormat> coverage_formats{{"text", CoverageFormat::text},
                                                             {"json", CoverageFormat::json},
                                                             {"html", CoverageFormat::html},
                                                             {"cells", CoverageFormat::cells}};

}  // namespace

void add_coverage(CLI::App &command, Chosen &chosen) {
  const auto arguments = std::make_shared<CoverageArguments>();
  command
      .add_option("CORPUS", arguments->corpus,
                  "Folders of commits, each as for check, or folders that hold such folders")
      ->type_name("");
  command.add_option("--random", arguments->random, "So many drawn commits are part of the corpus")->type_name("N");
  command.add_option("--seed", arguments->seed, "Of the first commit that is drawn")->type_name("N");
  command
      .add_option("--expect", arguments->expect,
                  "File of cells that must be filled, as --format cells writes it; the rules' unless it is given")
      ->type_name("FILE");
  command.add_option("--fill", arguments->fill, "Draw commits that fill the empty cells, and write them here")
      ->type_name("DIR");
  command.add_option("--drawn", arguments->drawn, "So many are drawn for --fill at most; 1000 unless it is given")
      ->type_name("N");
  command.add_option("--plugin", arguments->plugin, "Validation library to ask")->type_name("FILE");
  cli::add_choice(command, "--format", coverage_formats, arguments->format,
                  "Format of the result; text unless it is given");
  command.callback([arguments, &chosen] {
    chosen = [arguments](const cli::Environment &environment) { return tell_coverage(*arguments, environment); };
  });
}

}  // namespace maintenance
