// The Debian package, made from this build, unpacked and used.

#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>
#include <sstream>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

namespace fs = std::filesystem;

const std::string example = SOURCE_DIR "/examples/vpn-count-above-limit";
const std::string libraries = "/usr/lib/" MULTIARCH "/vpnval/";

/// Without what the caller's environment says of libraries and plug-ins.
ProcessResult run_clean(const std::string &command) {
  return run_process("env -i PATH=/usr/sbin:/usr/bin:/sbin:/bin " + command);
}

std::set<std::string> lines_of(const std::string &text) {
  std::set<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.insert(line);
  return lines;
}

std::set<std::string> names_in(const std::string &directory) {
  std::set<std::string> names;
  for (const auto &entry : fs::directory_iterator(directory)) names.insert(entry.path().filename().string());
  return names;
}

/// Every file that the package is to have, as "mode path".
std::set<std::string> expected_files() {
  std::set<std::string> files{
      "-rwxr-xr-x /usr/bin/vpnval",
      "-rwxr-xr-x /usr/libexec/vpnval/vpnval-maintenance",
      "-rw-r--r-- " + libraries + "libconfig_validate_vpn.so",
      "-rw-r--r-- " + libraries + "libconfig_validate_vpn_recorder.so",
      "-rw-r--r-- " + libraries + "libelement_host.so",
      "-rw-r--r-- /usr/share/bash-completion/completions/vpnval",
      "-rw-r--r-- /usr/share/zsh/vendor-completions/_vpnval",
      "-rw-r--r-- /usr/share/doc/vpnval/changelog.gz",
      "-rw-r--r-- /usr/share/doc/vpnval/copyright",
      "-rw-r--r-- /usr/share/doc/vpnval/kubernetes-commits.yaml",
      "-rwxr-xr-x /usr/share/vpnval/decide_chunk",
      "-rwxr-xr-x /usr/share/vpnval/decide_indexed",
      "-rw-r--r-- /usr/share/vpnval/sum_up.jq",
  };
  for (const auto &name : names_in(SOURCE_DIR "/docs")) {
    if (name.ends_with(".schema.json")) files.insert("-rw-r--r-- /usr/share/vpnval/schemas/" + name);
  }
  for (const auto &entry : fs::recursive_directory_iterator(SOURCE_DIR "/examples")) {
    const std::string name = fs::relative(entry.path(), SOURCE_DIR).string();
    if (entry.is_regular_file()) files.insert("-rw-r--r-- /usr/share/doc/vpnval/" + name);
  }
  files.insert("-rw-r--r-- /usr/share/vpnval/yang/vpnval-agent.yang");
  if (fs::exists(build_dir() + "/lib/agent/libvpnval-agent.so")) {
    files.insert("-rw-r--r-- " + libraries + "agent/libvpnval-agent.so");
    files.insert("-rwxr-xr-x " + libraries + "agent/vpnval-netconf-subsystem");
  }
  for (const auto &name : names_in(SOURCE_DIR "/yang")) files.insert("-rw-r--r-- /usr/share/vpnval/yang/" + name);
  for (const auto &name : names_in(SOURCE_DIR "/docs/man")) {
    files.insert("-rw-r--r-- /usr/share/man/man1/" + name + ".gz");
  }
  return files;
}

class Package : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    if (!is_release()) return;
    std::string name = (fs::temp_directory_path() / "vpnval-package-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    scratch = name;
    const ProcessResult made = run_process("cd " + scratch + " && cpack --config " + build_dir() +
                                           "/CPackConfig.cmake -B " + scratch + "/packages 2>&1");
    ASSERT_EQ(made.status, 0) << made.output;
    package = run_process("ls " + scratch + "/packages/*.deb | tr -d '\\n'").output;
    root = scratch + "/root";
    ASSERT_EQ(run_process("dpkg-deb -x " + package + " " + root).status, 0);
  }

  static void TearDownTestSuite() {
    if (!scratch.empty()) fs::remove_all(scratch);
  }

  void SetUp() override {
    if (!is_release()) GTEST_SKIP() << "what ships is packaged: the release build, not \"" + build_type() + "\"";
  }

  static bool is_release() { return build_type() == "Release"; }

  static std::string field(const std::string &name) {
    std::string value = run_process("dpkg-deb -f " + package + " " + name).output;
    return value.substr(0, value.find('\n'));
  }

  static std::string scratch;
  static std::string package;  ///< the .deb
  static std::string root;     ///< where it is unpacked
};

std::string Package::scratch;
std::string Package::package;
std::string Package::root;

TEST_F(Package, says_what_it_is) {
  const std::string architecture = run_process("dpkg --print-architecture | tr -d '\\n'").output;
  EXPECT_EQ(fs::path(package).filename(), "vpnval_" PACKAGE_VERSION "_" + architecture + ".deb");
  EXPECT_EQ(field("Package"), "vpnval");
  EXPECT_EQ(field("Version"), PACKAGE_VERSION);
  EXPECT_EQ(field("Architecture"), architecture);
  EXPECT_EQ(field("Maintainer"), "vpnval maintainers <maintainers@vpnval.invalid>");
  EXPECT_EQ(field("Section"), "net");
  EXPECT_EQ(field("Description"), "check commits of MPLS layer-2 VPN configuration off the network element");
}

TEST_F(Package, depends_on_the_libraries_that_its_files_need) {
  const std::string names = run_process("dpkg-deb -f " + package + " Depends | sed 's/ ([^)]*)//g; s/, /\\n/g'").output;
  EXPECT_EQ(lines_of(names),
            (std::set<std::string>{"libc6", "libexpat1", "libfmt9", "libgcc-s1", "libstdc++6", "libyang2"}));
}

TEST_F(Package, recommends_what_serving_an_element_needs) {
  EXPECT_EQ(field("Recommends"), "netconfd, openssh-client, openssh-server");
}

TEST_F(Package, holds_every_file_in_its_place_and_no_other) {
  const std::string list = run_process("dpkg-deb -c " + package + " | grep -v ^d").output;
  std::set<std::string> files;
  for (const std::string &line : lines_of(list)) {
    EXPECT_NE(line.find(" root/root "), std::string::npos) << line;
    files.insert(line.substr(0, line.find(' ')) + " " + line.substr(line.find(" ./usr/") + 2));
  }
  EXPECT_EQ(files, expected_files());
}

TEST_F(Package, decides_a_commit_where_it_is_unpacked) {
  const ProcessResult result = run_clean(root + "/usr/bin/vpnval check " + example);
  EXPECT_EQ(result.status, 1);
  EXPECT_NE(result.output.find("commit rejected: "), std::string::npos) << result.output;
  EXPECT_NE(result.output.find("decided by " + root + libraries + "libconfig_validate_vpn.so, build id "),
            std::string::npos)
      << result.output;
}

TEST_F(Package, has_the_commands_for_maintainers_where_it_is_unpacked) {
  const ProcessResult result = run_clean(root + "/usr/bin/vpnval shrink " + example);
  EXPECT_EQ(result.status, 0) << result.output;
  EXPECT_EQ(result.output.find("rejected [vpn-limit] by vpn_overflow_valp: "), 0U) << result.output;
}

TEST_F(Package, decides_a_chunk_of_its_examples_and_sums_up) {
  const std::string share = root + "/usr/share";
  const std::string script = "cd " + scratch + " && ls -d " + share +
                             "/doc/vpnval/examples/vpn-count-* >chunk && VPNVAL=" + root + "/usr/bin/vpnval " + share +
                             "/vpnval/decide_chunk chunk result && jq -n -f " + share +
                             "/vpnval/sum_up.jq result | jq -c '[.accepted, .rejected]'";
  EXPECT_EQ(run_clean("sh -c \"" + script + "\"").output, "[1,1]\n");
}

TEST_F(Package, takes_its_own_libraries_and_knows_nothing_of_the_build) {
  const std::string linked = run_clean("ldd " + root + "/usr/bin/vpnval").output;
  EXPECT_NE(linked.find("libelement_host.so => " + root + "/usr/bin/../lib/" MULTIARCH "/vpnval/"), std::string::npos)
      << linked;
  EXPECT_EQ(run_process("grep -rlF -e " SOURCE_DIR " -e " + build_dir() + " " + root).output, "");
}

TEST_F(Package, has_the_manual_where_man_finds_it) {
  for (const std::string &name : names_in(SOURCE_DIR "/docs/man")) {
    const std::string page = fs::path(name).stem().string();
    EXPECT_EQ(run_process("man -M " + root + "/usr/share/man -w " + page).output,
              root + "/usr/share/man/man1/" + name + ".gz\n");
  }
}

TEST_F(Package, has_the_completions_where_the_shells_find_them) {
  EXPECT_EQ(
      run_process("bash -c '. " + root + "/usr/share/bash-completion/completions/vpnval && complete -p vpnval'").output,
      "complete -F _vpnval vpnval\n");
  EXPECT_EQ(run_process("zsh -fc 'fpath=(" + root +
                        "/usr/share/zsh/vendor-completions $fpath); autoload -Uz compinit; compinit -D -u; "
                        "print $_comps[vpnval]'")
                .output,
            "_vpnval\n");
}

/// The package, installed on this machine until the object goes.
class Installation {
 public:
  explicit Installation(const std::string &package) : result(run_clean("dpkg -i " + package + " 2>&1")) {}
  ~Installation() { run_clean("dpkg -r vpnval >/dev/null 2>&1"); }
  Installation(const Installation &) = delete;
  Installation &operator=(const Installation &) = delete;

  const ProcessResult result;
};

bool is_throw_away_machine() {
  const char *ci = std::getenv("CI");
  return ci != nullptr && std::string(ci) == "true" && geteuid() == 0;
}

TEST_F(Package, is_installed_used_and_removed) {
  if (!is_throw_away_machine()) GTEST_SKIP() << "installed for root under CI=true only";
  if (fs::exists("/usr/bin/vpnval")) GTEST_SKIP() << "the machine has a vpnval of its own";
  {
    const Installation installation(package);
    ASSERT_EQ(installation.result.status, 0) << installation.result.output;
    const ProcessResult check = run_clean("vpnval check " + example);
    EXPECT_EQ(check.status, 1);
    EXPECT_NE(check.output.find("decided by " + libraries + "libconfig_validate_vpn.so"), std::string::npos);
  }
  EXPECT_FALSE(fs::exists("/usr/bin/vpnval"));
  EXPECT_FALSE(fs::exists(libraries));
}

}  // namespace
