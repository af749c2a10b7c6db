#ifndef CLI_COMMAND_LINE_ARGUMENTS_H
#define CLI_COMMAND_LINE_ARGUMENTS_H

#include <cstddef>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "cli/command_line/environment.h"
#include "cli/command_line/exit_status.h"
#include "cli/command_line/fetch_arguments.h"
#include "cli/command_line/profile_arguments.h"
#include "cli/command_line/serve_arguments.h"
#include "diagnosis/diagnose.h"
#include "element/input/configuration_format.h"

namespace cli {

/// Where a commit's files stand. A file that is named takes the place of the directory's.
struct InputArguments {
  std::string directory;
  std::string element;
  std::string running;
  std::string candidate;
  std::vector<std::string> edits{};  ///< in place of the candidate
  bool strict = false;               ///< nodes of modules that are not the element's are an error
  bool list_foreign = false;         ///< list the modules of such nodes
};

enum class Format { text, json, sarif, junit, github, markdown };
enum class Colour { on_a_terminal, always, never };

/// A file that takes the result.
struct OutputArgument {
  std::optional<Format> format;  ///< nothing: that of the command, and the file takes the place of standard output
  std::string file;
};

struct CheckArguments {
  bool is_audit = false;                       ///< what stands in a configuration is asked about, not a change
  InputArguments input;                        ///< a single commit's
  std::vector<std::string> directories;        ///< as they were given; an audit's files
  std::size_t jobs = 0;                        ///< so many commits are decided at once; 0: not given
  std::vector<std::string> forwarded_options;  ///< the options that deciding each of many commits takes
  std::string plugin;
  Format format = Format::text;
  std::vector<OutputArgument> outputs;  ///< files
  bool quiet = false;                   ///< no text for people
  bool all_points = false;
  bool derived = false;
  bool trace = false;
  bool fail_on_warn = false;
  std::optional<std::size_t> max_removed;  ///< more objects may not be removed
  bool fail_on_no_change = false;
  bool rollback = false;  ///< decide the way back, too
  bool all_faults = false;
  diagnosis::Budget budget;
  std::vector<std::string> suppressions;  ///< files
  Colour colour = Colour::on_a_terminal;

  /// Many commits, or one that is to be decided as one of many.
  bool is_series() const { return jobs != 0 || directories.size() > 1; }
};

enum class TableFormat { text, json };

struct ShowArguments {
  InputArguments input;
  std::string path;
  bool running = false;  ///< the running configuration instead of the candidate
  TableFormat format = TableFormat::text;
};

enum class PageFormat { text, markdown };

struct ExplainArguments {
  std::vector<std::string> rules;  ///< ids, messages, a validation point or words; none: list all rules
  PageFormat format = PageFormat::text;
};

struct HeadroomArguments {
  InputArguments input;               ///< its element is not used
  std::vector<std::string> elements;  ///< profiles; none: the directory's
  std::string plugin;
  TableFormat format = TableFormat::text;
};

struct MapArguments {
  InputArguments input;
  std::string output;
  std::string plugin;
  diagnosis::Budget budget;
};

struct PlanArguments {
  InputArguments input;
  std::string output;  ///< a folder
  std::string plugin;
  TableFormat format = TableFormat::text;
  diagnosis::Budget budget;
};

struct ApplyArguments {
  InputArguments input;                        ///< its element is not used
  std::string output;                          ///< a file; empty: standard output
  std::optional<element::InputFormat> format;  ///< that of the running configuration unless it is given
};

/// A command of maintenance_commands().
struct MaintenanceArguments {
  std::vector<std::string> words;  ///< the command line that its program takes
};

/// A command to carry out, or the status to end with because help or the version was all that was asked for.
using ParsedArguments =
    std::variant<ExitStatus, CheckArguments, ShowArguments, ExplainArguments, HeadroomArguments, MapArguments,
                 PlanArguments, ApplyArguments, FetchArguments, ProfileArguments, ServeArguments, MaintenanceArguments>;

/// Reads a command line without the program's name; prints help and version itself. Throws UsageError.
ParsedArguments parse_arguments(const std::vector<std::string> &arguments, const Environment &environment);

}  // namespace cli

#endif
