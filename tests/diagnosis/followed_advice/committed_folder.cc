#include "tests/diagnosis/followed_advice/committed_folder.h"

#include <fstream>
#include <stdexcept>

#include "element/output/configuration_writer.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace followed {
namespace {

void write(const std::filesystem::path &file, const std::string &content) {
  if (!(std::ofstream(file) << content)) throw std::runtime_error("cannot write " + file.string());
}

std::filesystem::path new_directory() {
  std::string name = (std::filesystem::temp_directory_path() / "followed-advice-XXXXXX").string();
  if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no new directory");
  return name;
}

}  // namespace

CommittedFolder::CommittedFolder(const std::string &element, const brute_force::Configurations &commit)
    : directory_(new_directory()) {
  write(directory_ / "element.json", element);
  write(directory_ / "running.xml", element::write_configuration(commit.running, element::InputFormat::xml));
  write(directory_ / "candidate.xml", element::write_configuration(commit.candidate, element::InputFormat::xml));
}

CommittedFolder::~CommittedFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(directory_, ignored);
}

nlohmann::json CommittedFolder::verdict() const {
  return nlohmann::json::parse(check("json")).at("commits").at(0).at("verdict");
}
std::string CommittedFolder::text() const { return check("text"); }

std::string CommittedFolder::check(const std::string &format) const {
  const ProcessResult result = run_process(vpnval_file() + " check --plugin " + plugin_file() +
                                           " --all-faults --budget 1000000,86400s --format " + format + " " +
                                           directory_.string() + " 2>/dev/null");
  if (result.status != 0 && result.status != 1) throw std::runtime_error("not decided: " + directory_.string());
  return result.output;
}

brute_force::Configurations after(const brute_force::Configurations &commit, const Steps &steps) {
  brute_force::Configurations result = commit;
  for (const std::string &path : steps) {
    result.candidate.erase(path);
    const element::Node *before = commit.running.find(path);
    if (before == nullptr) continue;
    element::Node &again = result.candidate.put(path, before->value);
    again.children = before->children;
  }
  result.candidate.sort();
  return result;
}

}  // namespace followed
