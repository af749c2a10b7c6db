#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>

#include "tests/cli/commit_folder.h"
#include "tests/support/file_content.h"

namespace {

namespace fs = std::filesystem;

const std::string name_space = R"(xmlns="urn:ietf:params:xml:ns:netconf:base:1.0")";

std::string hello(const std::string &more = "") {
  return "<hello " + name_space + "><capabilities><capability>urn:ietf:params:netconf:base:1.0</capability>" + more +
         "</capabilities><session-id>1</session-id></hello>]]>]]>";
}

const std::string candidate = "<capability>urn:ietf:params:netconf:capability:candidate:1.0</capability>";

std::string reply(int id, const std::string &content) {
  return "<rpc-reply " + name_space + " message-id=\"" + std::to_string(id) + "\">" + content + "</rpc-reply>";
}

/// Runs vpnval fetch with a program in the place of ssh.
class FetchCommand : public testing::Test {
 protected:
  FetchCommand() {
    fs::remove_all(folder.path());
    fs::create_directories(folder.file("bin"));
  }

  void replace_ssh(const std::string &script) const {
    folder.write("bin/ssh", "#!/bin/sh\n" + script);
    chmod(folder.file("bin/ssh").c_str(), 0700);
  }

  /// An ssh that sends this, then waits for the end of what it is sent.
  void replace_ssh_by_server(const std::string &sent) const {
    folder.write("sent", sent);
    replace_ssh("cat " + folder.file("sent") + "\necho \"$@\" >" + folder.file("arguments") + "\ncat >" +
                folder.file("received") + "\n");
  }

  Outcome fetch(std::vector<std::string> more = {}) const {
    std::ostringstream out;
    std::ostringstream err;
    cli::Environment environment = still_environment(out, err, "/nowhere/bin/vpnval", "");
    environment.search_path = folder.file("bin");
    std::vector<std::string> arguments{"fetch", "ops@element", "-o", target};
    arguments.insert(arguments.end(), more.begin(), more.end());
    const cli::ExitStatus status = cli::run(arguments, environment);
    return {static_cast<int>(status), out.str(), err.str()};
  }

  void expect_refusal(const std::string &error, const std::vector<std::string> &more = {}, int status = 76) const {
    const Outcome outcome = fetch(more);
    EXPECT_EQ(outcome.err, "vpnval: " + error + "\n");
    EXPECT_EQ(outcome.status, status);
    EXPECT_EQ(outcome.out, "");
    EXPECT_FALSE(fs::exists(target));
  }

  CommitFolder folder;
  std::string target = folder.file("target");
};

TEST_F(FetchCommand, writes_what_the_element_sends) {
  const std::string running = reply(1, "<data><a xmlns=\"urn:a\"/></data>");
  replace_ssh_by_server(hello() + running + "]]>]]>" + reply(2, "<ok/>") + "]]>]]>");
  const Outcome outcome = fetch();
  EXPECT_EQ(outcome.status, 0) << outcome.err;
  EXPECT_EQ(outcome.out, target + "/running.xml: " + std::to_string(running.size()) + " bytes\n");
  EXPECT_EQ(outcome.err, target + ": holds no element.json, the element's profile, which check needs\n");
  EXPECT_EQ(content_of(target + "/running.xml"), running);
  EXPECT_FALSE(fs::exists(target + "/candidate.xml"));
  EXPECT_EQ(content_of(folder.file("arguments")), "-T -x -a -p 830 -s -- ops@element netconf\n");
  EXPECT_NE(content_of(folder.file("received")).find("<close-session/>"), std::string::npos);
}

TEST_F(FetchCommand, writes_the_candidate_beside_what_stands_there) {
  fs::create_directory(target);
  folder.write("target/element.json", "{}");
  folder.write("target/running.xml", "old");
  replace_ssh_by_server(hello(candidate) + reply(1, "<data/>") + "]]>]]>" + reply(2, "<data> </data>") + "]]>]]>" +
                        reply(3, "<ok/>") + "]]>]]>");
  const Outcome outcome = fetch({"--candidate", "--port", "8300"});
  EXPECT_EQ(outcome.status, 0);
  EXPECT_EQ(outcome.err, "");
  EXPECT_EQ(content_of(target + "/running.xml"), reply(1, "<data/>"));
  EXPECT_EQ(content_of(target + "/candidate.xml"), reply(2, "<data> </data>"));
  EXPECT_EQ(content_of(target + "/element.json"), "{}");
  EXPECT_EQ(content_of(folder.file("arguments")), "-T -x -a -p 8300 -s -- ops@element netconf\n");
}

TEST_F(FetchCommand, what_ssh_says_is_told) {
  replace_ssh("echo warning >&2\necho 'ssh: connect to host element port 830: Connection refused' >&2\nexit 255\n");
  expect_refusal("ops@element: the connection ended: ssh: connect to host element port 830: Connection refused");
  replace_ssh("printf 'ops@element: Permission denied (publickey).\\r\\n' >&2\nexit 255\n");
  expect_refusal("ops@element: the connection ended: ssh: ops@element: Permission denied (publickey).");
  replace_ssh("echo 'subsystem request failed on channel 0' >&2\nexit 255\n");
  expect_refusal(
      "ops@element: the connection ended: ssh: subsystem request failed on channel 0; the server has no subsystem "
      "netconf on this port");
  replace_ssh("echo 'Warning: Permanently added a host.' >&2\nexit 3\n");
  expect_refusal("ops@element: the connection ended: ssh ended with status 3");
  replace_ssh("kill -KILL $$\n");
  expect_refusal("ops@element: the connection ended: ssh was ended by signal 9");
}

TEST_F(FetchCommand, what_is_no_netconf_is_told) {
  replace_ssh_by_server("Last login: today\n$ ");
  expect_refusal("ops@element: \"Last login: today\\x0a$\" in place of a hello; expected the capabilities of NETCONF");
  replace_ssh("head -c 10 /dev/zero | tr '\\0' '<'\nexit 0\n");
  expect_refusal("ops@element: the connection ended inside a message");
}

TEST_F(FetchCommand, a_refusal_of_the_element_is_told_and_nothing_is_written) {
  const std::string denied =
      "<rpc-error><error-tag>access-denied</error-tag><error-severity>error</error-severity></rpc-error>";
  replace_ssh_by_server(hello(candidate) + reply(1, "<data/>") + "]]>]]>" + reply(2, denied) + "]]>]]>");
  expect_refusal("ops@element: refused: access-denied", {"--candidate"});
}

TEST_F(FetchCommand, a_connection_that_is_lost_leaves_what_stood_there) {
  replace_ssh("cat " + folder.file("sent") + "\nexit 255\n");
  folder.write("sent", hello() + reply(1, "<data><a/></data>").substr(0, 90));
  expect_refusal("ops@element: the connection ended inside a message: ssh ended with status 255");
  fs::create_directory(target);
  folder.write("target/running.xml", "old");
  EXPECT_EQ(fetch().status, 76);
  EXPECT_EQ(content_of(target + "/running.xml"), "old");
  EXPECT_EQ(std::distance(fs::directory_iterator(target), {}), 1);
}

TEST_F(FetchCommand, an_element_that_is_silent_is_given_up) {
  replace_ssh_by_server("");
  expect_refusal("ops@element: no answer for 0.001 s", {"--timeout", "0.001"});
}

TEST_F(FetchCommand, an_element_without_a_candidate_is_told) {
  replace_ssh_by_server(hello());
  expect_refusal("ops@element: has no candidate configuration; expected the capability candidate, or no --candidate",
                 {"--candidate"});
}

TEST_F(FetchCommand, a_machine_without_ssh_is_told) {
  expect_refusal("ssh: no such program on PATH; expected one, as of the package openssh-client");
}

TEST_F(FetchCommand, a_folder_that_cannot_take_the_files_is_told_before_the_element_is_asked) {
  fs::create_directory(target);
  const auto beside = [&](const std::string &file, const std::string &name) {
    folder.write("target/" + file, "");
    const Outcome outcome = fetch({"--candidate"});
    EXPECT_EQ(outcome.status, 73);
    EXPECT_EQ(outcome.err,
              "vpnval: " + target + ": holds " + file + "; expected a folder in which " + name + " can stand alone\n");
    folder.remove("target/" + file);
  };
  beside("running.json", "running.xml");
  beside("candidate.json", "candidate.xml");
  beside("edit.xml", "candidate.xml");
}

TEST_F(FetchCommand, a_folder_that_cannot_be_made_is_told) {
  target = folder.file("no/target");
  replace_ssh_by_server(hello());
  expect_refusal(target + ": cannot be written: No such file or directory", {}, 73);
}

}  // namespace
