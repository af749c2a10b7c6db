#include "cli/commands/serve_command.h"

#include <fmt/chrono.h>
#include <fmt/format.h>
#include <pwd.h>
#include <unistd.h>

#include <csignal>
#include <filesystem>
#include <optional>

#include "cli/command_line/errors.h"
#include "cli/input/input_files.h"
#include "cli/input/plugin_file.h"
#include "element/input/configuration.h"
#include "element/input/netconf_names.h"
#include "element/output/configuration_writer.h"
#include "element/profile/profile.h"
#include "serve/serve_error.h"
#include "serve/service.h"

namespace cli {
namespace {

namespace fs = std::filesystem;

struct User {
  std::string name;
  fs::path home;
};

User this_user() {
  const passwd *entry = getpwuid(geteuid());
  if (entry == nullptr)
    throw serve::ServeError(fmt::format("user {} has no name; expected one to log in as", geteuid()));
  return {entry->pw_name, entry->pw_dir};
}

std::string time_of_day() {
  return fmt::format("{:%FT%TZ}", fmt::gmtime(std::chrono::system_clock::to_time_t(std::chrono::system_clock::now())));
}

/// Bytes of the log that may wait for its reader.
constexpr std::size_t kLogCapacity = std::size_t{1} << 20;

struct ServedFiles {
  fs::path element;
  fs::path running;
};

ServedFiles find_files(const ServeArguments &arguments) {
  if (arguments.directory.empty() && (arguments.element.empty() || arguments.running.empty())) {
    throw UsageError("a directory was expected, or --element and --running");
  }
  ServedFiles files;
  if (!arguments.directory.empty()) {
    InputArguments input;
    input.directory = arguments.directory;
    const InputFiles found = find_input_files(input);
    files = {found.element, found.running};
  }
  if (!arguments.element.empty()) files.element = arguments.element;
  if (!arguments.running.empty()) files.running = arguments.running;
  return files;
}

/// A node of the agent's own, for it refuses a startup configuration without any.
constexpr const char *kEmptyStartup = "<nacm xmlns=\"urn:ietf:params:xml:ns:yang:ietf-netconf-acm\"></nacm>";

/// The element's own nodes, as the agent reads them at its start; false where there are none.
bool write_startup(const fs::path &running, const fs::path &place) {
  const element::Schema schema;
  const element::ConfigurationFile file = element::read_configuration_file(schema, running);
  const bool is_empty = file.tree.root().children.empty();
  const std::string content =
      is_empty ? kEmptyStartup : element::write_configuration(file.tree, element::InputFormat::xml);
  serve::write_file(place, fmt::format("<config xmlns=\"{}\">\n{}</config>\n", element::kNetconfNamespace, content));
  return !is_empty;
}

class ElementService {
 public:
  ElementService(const ServeArguments &arguments, const Environment &environment)
      : arguments_(arguments),
        environment_(environment),
        user_(this_user()),
        tools_(serve::find_tools(environment.search_path, environment.program, VPNVAL_MULTIARCH)),
        lines_(STDOUT_FILENO, kLogCapacity,
               [this](std::size_t count) { return serve::dropped_event(arguments_.log, count, time_of_day()); }),
        log_([this](const std::string &line) { lines_.add(line); }, arguments.log, time_of_day) {
    if (!arguments.state.empty()) state_.emplace(fs::absolute(arguments.state));
  }

  void run(const process::Interrupts &interrupts) {
    const serve::NetconfAgent agent = make_agent();
    const serve::PrivateSshd sshd = make_sshd(agent);
    serve::Service service(log_, lines_, interrupts);
    try {
      service.start(serve::prepare_agent(agent, tools_), serve::prepare_sshd(sshd, tools_));
      log_.ready(serve::ssh_command(sshd), sshd.endpoint.address, sshd.endpoint.port, user_.name);
      service.run();
    } catch (const std::exception &) {
      service.end();
      throw;
    } catch (const process::Interrupted &) {
      service.end();
    }
  }

 private:
  serve::NetconfAgent make_agent() {
    const ServedFiles files = find_files(arguments_);
    element::read_profile(files.element);
    endpoint_ =
        serve::free_endpoint(serve::parse_endpoint(arguments_.listen.empty() ? "127.0.0.1" : arguments_.listen));
    serve::NetconfAgent agent;
    agent.folder = runtime_.make("agent");
    agent.user = user_.name;
    agent.port = endpoint_.port;
    agent.settings.program = environment_.program;
    agent.settings.profile = fs::absolute(files.element);
    agent.settings.plugin = find_plugin_file(arguments_.plugin, environment_);
    agent.settings.work = agent.folder / "work";
    agent.settings.running = state_ ? state_->running() : agent.folder / "running.xml";
    agent.settings.warnings = arguments_.warnings;
    agent.settings.asks_at_edits = arguments_.asks_at_edits;
    agent.settings.budget = arguments_.budget;
    agent.settings.limit = std::chrono::seconds(arguments_.library_timeout);
    const fs::path startup = agent.folder / "begin.xml";
    std::error_code unknown;
    if (arguments_.has_startup) {
      agent.settings.startup = agent.own_startup();
      agent.settings.kept_startup = state_ ? state_->startup() : agent.folder / "kept-startup.xml";
    }
    const fs::path kept = arguments_.has_startup ? agent.settings.kept_startup : agent.settings.running;
    const bool goes_on = fs::exists(kept, unknown);
    const bool is_written = write_startup(goes_on ? kept : files.running, startup);
    if (is_written || arguments_.has_startup) agent.startup = startup;
    return agent;
  }

  serve::PrivateSshd make_sshd(const serve::NetconfAgent &agent) {
    serve::PrivateSshd sshd;
    sshd.endpoint = endpoint_;
    sshd.folder = runtime_.make("sshd");
    sshd.host_key = state_ ? state_->host_key() : sshd.folder / "host_key";
    sshd.authorized_keys = authorized_keys();
    sshd.agent_socket = agent.socket();
    sshd.user = user_.name;
    return sshd;
  }

  /// Who listens to the world says whom it lets in.
  fs::path authorized_keys() const {
    if (!arguments_.authorized_keys.empty()) return fs::absolute(arguments_.authorized_keys);
    if (!endpoint_.is_loopback()) {
      throw serve::ServeError(
          fmt::format("{} is no address of this machine alone; expected --authorized-keys FILE", endpoint_.address));
    }
    const std::string keys = serve::own_public_keys(user_.home);
    if (keys.empty()) {
      throw serve::ServeError(fmt::format("{}: holds no public key (*.pub); expected one, or --authorized-keys FILE",
                                          (user_.home / ".ssh").string()));
    }
    fs::path file = runtime_.path() / "own_keys";
    serve::write_file(file, keys);
    return file;
  }

  const ServeArguments &arguments_;
  const Environment &environment_;
  User user_;
  serve::Tools tools_;
  serve::LineQueue lines_;
  serve::EventLog log_;
  serve::RuntimeFolder runtime_;
  std::optional<serve::StateFolder> state_;
  serve::Endpoint endpoint_;
};

}  // namespace

ExitStatus serve_element(const ServeArguments &arguments, const Environment &environment) {
  find_files(arguments);
  try {
    const process::Interrupts interrupts;
    ElementService(arguments, environment).run(interrupts);
  } catch (const process::Interrupted &) {
    // Before all was there; nothing runs.
  }
  return ExitStatus::accepted;
}

}  // namespace cli
