#include "cli/input/plugin_file.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "host/run/plugin.h"
#include "tests/cli/commit_folder.h"

namespace {

namespace fs = std::filesystem;

std::string find(const CommitFolder &prefix, const std::string &option, const std::string &variable) {
  std::ostringstream unused;
  return cli::find_plugin_file(option, {unused, unused, prefix.file("bin/vpnval"), variable}).string();
}

TEST(PluginFile, the_option_comes_before_the_variable_before_the_programs_own) {
  const CommitFolder prefix;
  fs::create_directory(prefix.file("lib"));
  prefix.write("lib/libconfig_validate_vpn.so", "");
  EXPECT_EQ(find(prefix, "/option.so", "/variable.so"), "/option.so");
  EXPECT_EQ(find(prefix, "", "/variable.so"), "/variable.so");
  EXPECT_EQ(find(prefix, "", ""), prefix.file("lib/libconfig_validate_vpn.so"));
}

TEST(PluginFile, a_name_without_a_slash_means_the_working_directory) {
  EXPECT_EQ(find(CommitFolder(), "here.so", ""), (fs::current_path() / "here.so").string());
}

TEST(PluginFile, an_installed_library_stands_in_the_systems_directory_for_private_libraries) {
  const CommitFolder prefix;
  const std::string directory = prefix.file("lib/" VPNVAL_MULTIARCH "/vpnval");
  fs::create_directories(directory);
  std::ofstream(directory + "/libconfig_validate_vpn.so") << "";
  EXPECT_EQ(find(prefix, "", ""), directory + "/libconfig_validate_vpn.so");
}

TEST(PluginFile, without_a_library_the_places_that_were_looked_at_are_named) {
  const CommitFolder prefix;
  try {
    find(prefix, "", "");
    FAIL() << "a library was found";
  } catch (const host::LoadError &error) {
    EXPECT_EQ(std::string(error.what()), prefix.file("lib/libconfig_validate_vpn.so") + ": no such file, nor " +
                                             prefix.file("lib/" VPNVAL_MULTIARCH "/vpnval/libconfig_validate_vpn.so") +
                                             "; --plugin or VPNVAL_PLUGIN may name another");
  }
}

}  // namespace
