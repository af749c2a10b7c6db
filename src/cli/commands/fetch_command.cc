#include "cli/commands/fetch_command.h"

#include <fmt/format.h>

#include <csignal>
#include <filesystem>
#include <memory>
#include <system_error>
#include <vector>

#include "cli/command_line/errors.h"
#include "cli/terminal/output_file.h"
#include "cli/terminal/progress.h"
#include "netconf/session.h"
#include "netconf/ssh_transport.h"
#include "process/find_program.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

bool is_in(const fs::path &folder, const std::string &name) {
  std::error_code unknown;
  return fs::exists(folder / name, unknown);
}

/// A folder with two files for one configuration would be no commit any more.
void require_room(const FetchArguments &arguments) {
  const auto refuse_beside = [&](const std::string &other, const std::string &name) {
    if (!is_in(arguments.output, other)) return;
    throw OutputError(
        fmt::format("{}: holds {}; expected a folder in which {} can stand alone", arguments.output, other, name));
  };
  refuse_beside("running.json", "running.xml");
  if (!arguments.candidate) return;
  refuse_beside("candidate.json", "candidate.xml");
  refuse_beside("edit.xml", "candidate.xml");
}

/// The folder, made where it is not there; gone again unless it is kept.
class FetchFolder {
 public:
  explicit FetchFolder(fs::path folder) : folder_(std::move(folder)) {
    std::error_code error;
    is_new_ = fs::create_directory(folder_, error);
    if (error) throw OutputError(fmt::format("{}: cannot be written: {}", folder_.string(), error.message()));
  }
  ~FetchFolder() {
    std::error_code ignored;
    if (is_new_) fs::remove(folder_, ignored);
  }
  FetchFolder(const FetchFolder &) = delete;
  FetchFolder &operator=(const FetchFolder &) = delete;

  void keep() { is_new_ = false; }

 private:
  fs::path folder_;
  bool is_new_ = false;
};

struct Fetched {
  fs::path file;
  std::unique_ptr<OutputFile> output;
  std::size_t size = 0;
};

class Fetch {
 public:
  Fetch(const FetchArguments &arguments, const Environment &environment)
      : arguments_(arguments),
        environment_(environment),
        progress_(environment.err, environment.err_is_terminal, environment.clock) {}

  void run(const netconf::SshTarget &target) {
    const process::Interrupts interrupts;
    netconf::SshTransport transport(target, arguments_.silence, interrupts);
    netconf::Session session(transport);
    if (arguments_.candidate && !session.has_candidate()) {
      throw netconf::SessionError(
          "has no candidate configuration; expected the capability candidate, or no --candidate");
    }
    FetchFolder folder(arguments_.output);
    std::vector<Fetched> files;
    files.push_back(get(session, "running"));
    if (arguments_.candidate) files.push_back(get(session, "candidate"));
    session.close();
    transport.close();
    for (const Fetched &file : files) file.output->publish();
    folder.keep();
    progress_.clear();
    for (const Fetched &file : files) environment_.out << fmt::format("{}: {} bytes\n", file.file.string(), file.size);
  }

 private:
  Fetched get(netconf::Session &session, const std::string &datastore) {
    Fetched fetched;
    fetched.file = fs::path(arguments_.output) / (datastore + ".xml");
    fetched.output = std::make_unique<OutputFile>(fetched.file);
    session.get_config(datastore, [&](std::string_view bytes) {
      fetched.output->write(bytes);
      fetched.size += bytes.size();
      progress_.update([&] {
        return fmt::format("{}: {:.1f} MB of {}", arguments_.host, static_cast<double>(fetched.size) / 1e6, datastore);
      });
    });
    return fetched;
  }

  const FetchArguments &arguments_;
  const Environment &environment_;
  Progress progress_;
};

}  // namespace

ExitStatus fetch(const FetchArguments &arguments, const Environment &environment) {
  require_room(arguments);
  const auto ssh = process::find_program("ssh", environment.search_path);
  if (!ssh) throw ElementError("ssh: no such program on PATH; expected one, as of the package openssh-client");
  Fetch fetching(arguments, environment);
  try {
    fetching.run({*ssh, arguments.host, arguments.port});
  } catch (const netconf::SessionError &error) {
    throw ElementError(fmt::format("{}: {}", arguments.host, error.what()));
  } catch (const process::Interrupted &interrupted) {
    std::raise(interrupted.signal);
    throw std::runtime_error(fmt::format("ended by signal {}", interrupted.signal));
  }
  if (!is_in(arguments.output, "element.json")) {
    environment.err << fmt::format("{}: holds no element.json, the element's profile, which check needs\n",
                                   arguments.output);
  }
  return ExitStatus::accepted;
}

}  // namespace cli
