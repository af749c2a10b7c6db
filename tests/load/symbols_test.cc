// What the library asks of a host and what it offers, read from the file as the loader reads it.

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <regex>
#include <set>
#include <sstream>
#include <string>

#include "source_dir.h"
#include "tests/support/build_under_test.h"

namespace {

using Names = std::set<std::string>;

std::string output_of(const std::string &command) {
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> pipe(popen(command.c_str(), "r"), pclose);
  std::string output;
  std::array<char, 4096> part{};
  while (std::fgets(part.data(), part.size(), pipe.get()) != nullptr) output += part.data();
  return output;
}

/// The first group of every match.
Names names_in(const std::string &text, const std::string &pattern) {
  const std::regex regex(pattern, std::regex::ECMAScript | std::regex::multiline);
  Names names;
  for (std::sregex_iterator it(text.begin(), text.end(), regex), end; it != end; ++it) names.insert((*it)[1]);
  return names;
}

/// Undefined symbols that no versioned library provides: what is left for the host.
Names asked_of_host(const std::string &file) {
  return names_in(output_of("nm -D --undefined-only " + file), "^ +U ([^@\\s]+)$");
}

Names defined_in(const std::string &file) {
  return names_in(output_of("nm -D --defined-only " + file), "^[0-9a-f]+ [A-Z] ([^@\\s]+)");
}

std::string seam_headers() {
  std::ostringstream text;
  for (const auto &header : std::filesystem::directory_iterator(SOURCE_DIR "/platform/include")) {
    text << std::ifstream(header.path()).rdbuf();
  }
  return std::regex_replace(text.str(), std::regex(R"(/\*[^*]*\*+([^/*][^*]*\*+)*/)"), "");
}

/// Every function and variable that the seam's headers declare, as the linker knows it.
Names declared_by_seam() {
  Names names = names_in(seam_headers(), R"(^\w[\w ]*[ *](\w+)\([^;]*\);)");
  names.insert({"confd_errno", "_ZN21QnConfdCdbSessionBaseC2EP16QnConfdInterface11cdb_db_typeb",
                "_ZN21QnConfdCdbSessionBaseD2Ev", "_ZNK21QnConfdCdbSessionBase6SocketEv",
                "_ZTI21QnConfdCdbSessionBase"});
  return names;
}

Names common(Names names, const Names &others) {
  std::erase_if(names, [&](const std::string &name) { return !others.contains(name); });
  return names;
}

Names without(Names names, const Names &others) {
  std::erase_if(names, [&](const std::string &name) { return others.contains(name); });
  return names;
}

/// The library's own functions; what else it defines are data.
Names functions_of(const std::string &file) {
  return names_in(output_of("nm -D --defined-only " + file), "^[0-9a-f]+ [TWi] ([^@\\s]+)");
}

/// What the loader looks up by name when it binds the library.
Names named_by_relocations(const std::string &file) {
  return names_in(output_of("readelf -rW " + file), "^[0-9a-f]+ +[0-9a-f]+ +R_\\w+ +[0-9a-f]+ +([^@\\s]+)");
}

TEST(SymbolsTest, the_headers_are_understood) {
  const Names seam = declared_by_seam();
  for (const char *name : {"maapi_keypath_diff_iterate", "confd_trans_seterr", "qnconfd_instance_get", "fm_init",
                           "zlog", "valid_intfname", "cdb_get_objects", "qnmw_trace_register_category"}) {
    EXPECT_TRUE(seam.contains(name)) << name;
  }
}

TEST(SymbolsTest, the_library_asks_the_host_for_nothing_that_the_seam_does_not_declare) {
  if (is_sanitized()) GTEST_SKIP() << "a sanitizer's runtime takes over functions of the C library, without a version";
  const Names asked = asked_of_host(plugin_file());
  EXPECT_TRUE(asked.contains("maapi_num_instances"));
  EXPECT_EQ(without(asked, declared_by_seam()), Names{});
}

TEST(SymbolsTest, the_seam_declares_nothing_that_nobody_uses) {
  const Names for_hosts{"confd_pp_kpath"};  // which print key paths with it
  EXPECT_EQ(without(without(declared_by_seam(), for_hosts), asked_of_host(plugin_file())), Names{});
}

TEST(SymbolsTest, the_four_entry_points_have_their_plain_names) {
  const Names entry_points{"lib_init", "get_validation_point", "validate", "lib_finish"};
  EXPECT_EQ(without(entry_points, defined_in(plugin_file())), Names{});
}

TEST(SymbolsTest, the_library_defines_nothing_of_the_seam) {
  EXPECT_EQ(common(defined_in(plugin_file()), declared_by_seam()), Names{});
}

// Else a daemon or another library with a function of the same name would take a rule's place.
TEST(SymbolsTest, no_relocation_names_a_function_of_the_library) {
  const Names named = named_by_relocations(plugin_file());
  EXPECT_TRUE(named.contains("maapi_num_instances"));
  const Names own = functions_of(plugin_file());
  EXPECT_TRUE(own.contains("_Z28config_validate_vpn_overflowiP15confd_trans_ctxP14confd_hkeypathP11confd_value"));
  EXPECT_EQ(common(own, named), Names{});
}

TEST(SymbolsTest, the_library_needs_the_runtime_only) {
  if (is_sanitized()) GTEST_SKIP() << "a sanitizer's runtime comes on top";
  const Names needed = names_in(output_of("readelf -d " + plugin_file()), R"(\(NEEDED\).*\[([^\]]+)\])");
  EXPECT_FALSE(needed.empty());
  EXPECT_EQ(without(needed, {"libstdc++.so.6", "libgcc_s.so.1", "libm.so.6", "libc.so.6", "ld-linux-x86-64.so.2"}),
            Names{});
}

TEST(SymbolsTest, the_library_carries_a_build_id) {
  EXPECT_EQ(names_in(output_of("readelf -n " + plugin_file()), "Build ID: ([0-9a-f]+)").size(), 1U);
}

TEST(SymbolsTest, the_elements_host_provides_the_whole_seam) {
  EXPECT_EQ(without(declared_by_seam(), defined_in(host_file())), Names{});
}

}  // namespace
