#ifndef TESTS_CLI_COMMIT_FOLDER_H
#define TESTS_CLI_COMMIT_FOLDER_H

#include <filesystem>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line/environment.h"
#include "cli/run.h"

/// A folder that holds a commit, gone with the object. Fresh, it is a valid one that changes nothing, on an element
/// with the interfaces "ge-1" and "ge-2".
class CommitFolder {
 public:
  CommitFolder();
  ~CommitFolder();
  CommitFolder(const CommitFolder &) = delete;
  CommitFolder &operator=(const CommitFolder &) = delete;

  /// Writes a file of the folder.
  void write(const std::string &name, const std::string &content) const;
  void remove(const std::string &name) const;

  /// Running and candidate configuration, as what stands within the braces of the JSON document.
  void configure(const std::string &running, const std::string &candidate) const;

  std::string path() const { return directory_.string(); }
  std::string file(const std::string &name) const { return (directory_ / name).string(); }

 private:
  std::filesystem::path directory_;
};

/// The JSON member for a VPWS group "metro" that holds these VPNs.
std::string vpws_group(const std::string &vpns);

/// A VPWS VPN; `content` follows its name, with a leading comma.
std::string vpn(const std::string &name, const std::string &content = "");

/// The JSON member for VLAN 100 of the VLAN manager with one static member.
std::string vlan_member(const std::string &interface);

/// What a command line left behind.
struct Outcome {
  int status = -1;
  std::string out;
  std::string err;
};

/// The verdict on the only commit of a JSON document, as JSON. Throws a JSON exception where it has none.
std::string verdict_in(const std::string &document);

/// The surroundings of a command whose clock stands still, so that no progress is shown however long it takes.
cli::Environment still_environment(std::ostream &out, std::ostream &err, const std::filesystem::path &program,
                                   const std::string &plugin);

/// Runs a command line in this process, with the library that has one fixed answer for each point.
Outcome run_with_answers(const std::vector<std::string> &arguments);

/// The same with the library as it ships.
Outcome run_with_library(const std::vector<std::string> &arguments);

#endif
