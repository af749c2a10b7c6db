#include "tests/maintenance/reports/queued_vpns.h"

#include <fmt/format.h>

#include <filesystem>
#include <fstream>

#include "element/input/input_error.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"

namespace {

const element::Schema &queue_schema() {
  static const element::Schema schema;
  return schema;
}

/// The library reads its limits once a process, and so has one element here.
host::HostSession &queue_session() {
  static const element::Profile profile = element::read_profile(SOURCE_DIR "/docs/queue-example/element.json");
  static host::HostSession session(profile);
  return session;
}

const host::Plugin &queue_plugin() {
  queue_session();
  static const host::Plugin plugin(plugin_file());
  return plugin;
}

std::string group_with(const std::string &vpns) {
  return "<mpls xmlns='urn:element:mpls'><l2vpn-config xmlns='urn:element:l2-vpn'><l2vpn><vpws-group>"
         "<name>g</name>" +
         vpns + "</vpws-group></l2vpn></l2vpn-config></mpls>";
}

std::string vpn_text(const QueuedVpn &vpn) {
  return fmt::format(
      "<vpn><name>{}</name><neighbor><address>192.0.2.{}</address><pw-id>{}</pw-id></neighbor>"
      "<access-interface><name>gigabit-ethernet-1/1/{}</name><dot1q>{}</dot1q></access-interface></vpn>",
      vpn.name, static_cast<int>(vpn.name.front()), static_cast<int>(vpn.name.front()), vpn.port, vpn.vlan);
}

/// A file with the text while it lives.
class QueueFile {
 public:
  explicit QueueFile(const std::string &text)
      : file_(std::filesystem::temp_directory_path() / fmt::format("queue.{}.xml", ::getpid())) {
    std::ofstream(file_) << text;
  }
  ~QueueFile() { std::filesystem::remove(file_); }
  QueueFile(const QueueFile &) = delete;
  QueueFile &operator=(const QueueFile &) = delete;

  const std::filesystem::path &file() const { return file_; }

 private:
  std::filesystem::path file_;
};

}  // namespace

std::string configuration_with(const std::vector<QueuedVpn> &vpns) {
  std::string text;
  for (const QueuedVpn &vpn : vpns) text += vpn_text(vpn);
  return vpns.empty() ? "<data/>" : group_with(text);
}

std::string edit_of(const QueuedVpn &vpn) {
  if (vpn.vlan != 0) return group_with(vpn_text(vpn));
  return "<config xmlns='urn:ietf:params:xml:ns:netconf:base:1.0'>" +
         group_with("<vpn xmlns:nc='urn:ietf:params:xml:ns:netconf:base:1.0' nc:operation='delete'><name>" + vpn.name +
                    "</name></vpn>") +
         "</config>";
}

QueueOnElement::QueueOnElement(const std::string &text)
    : running(element::parse_configuration_file(queue_schema(), text, "running.xml")) {}

void QueueOnElement::add_edit(const std::string &name, const std::string &text) {
  const QueueFile file(text);
  changes.push_back(queue::read_edit_change(queue_schema(), name, file.file(), {}));
}

void QueueOnElement::add_candidate(const std::string &name, const std::string &text) {
  const QueueFile file(text);
  changes.push_back(queue::read_candidate_change(running.tree, name, file.file(), {}));
}

queue::Queue QueueOnElement::search(const diagnosis::Budget &budget, std::size_t most_sets) {
  diagnosis::Options options;
  options.budget = budget;
  options.now = [] { return std::chrono::steady_clock::time_point(); };
  queue::StepOracle oracle(queue_plugin(), queue_session(), running.tree, changes, options);
  return queue::search_queue(running.tree, changes.size(), oracle, most_sets);
}

std::size_t QueueOnElement::goes_through(const std::vector<std::size_t> &order) {
  element::Tree tree = running.tree;
  std::size_t count = 0;
  for (const std::size_t change : order) {
    try {
      element::Tree candidate = applied(tree, changes[change]);
      const auto commit = element::make_transaction(tree, candidate, queue_session().profile());
      const host::Verdict verdict = host::validate_commit(queue_plugin(), queue_session(), *commit);
      if (verdict.decision == host::Decision::rejected) continue;
      tree = std::move(candidate);
      ++count;
    } catch (const element::InputError &) {
    }
  }
  return count;
}
