#include "host/run/plugin.h"

#include <filesystem>
#include <fstream>

#include "host/run/build_id.h"
#include "source_dir.h"
#include "tests/host/served_element.h"
#include "tests/support/build_under_test.h"

namespace {

namespace fs = std::filesystem;
using host::SeamFunction;

class LoadedPlugin : public host_test::ServedElement {
 protected:
  static fs::path wrong(const char *fault) { return fs::path(wrong_plugin_dir()) / (std::string(fault) + ".so"); }

  /// Why the file cannot be loaded, after its name; empty when it can.
  static std::string fault_of(const fs::path &file) {
    try {
      const host::Plugin plugin(file);
      return "";
    } catch (const host::LoadError &error) {
      const std::string message = error.what();
      const std::string prefix = file.string() + ": ";
      EXPECT_EQ(message.substr(0, prefix.size()), prefix);
      return message.substr(std::min(prefix.size(), message.size()));
    }
  }

  std::uint64_t calls(SeamFunction function) const {
    return session.statistics.calls[static_cast<std::size_t>(function)];
  }
};

TEST_F(LoadedPlugin, the_library_that_ships_loads_and_reads_a_cards_limit) {
  const host::Plugin plugin(plugin_file());
  EXPECT_EQ(plugin.file(), plugin_file());
  EXPECT_EQ(calls(SeamFunction::fm_scalar_card_vpn_mgr_access_ports), 1U)
      << "no card of these tests has told it before";
}

TEST_F(LoadedPlugin, a_wrong_library_is_named_with_its_fault) {
  EXPECT_EQ(fault_of(wrong("none")), "");
  EXPECT_EQ(fault_of(wrong("without_lib_init")), "missing entry point lib_init");
  EXPECT_EQ(fault_of(wrong("without_get_validation_point")), "missing entry point get_validation_point");
  EXPECT_EQ(fault_of(wrong("without_validate")), "missing entry point validate");
  EXPECT_EQ(fault_of(wrong("without_lib_finish")), "missing entry point lib_finish");
  EXPECT_EQ(fault_of(wrong("unresolved_symbol")), "unresolved symbol no_such_platform_function");
  EXPECT_EQ(fault_of(wrong("other_point_name")),
            "get_validation_point named \"vpn_other_validation\"; \"vpn_app_validation\" was expected");
  EXPECT_EQ(fault_of(wrong("lib_init_fails")), "lib_init answered -1");
}

TEST_F(LoadedPlugin, a_file_that_is_not_there_or_no_library_is_named) {
  EXPECT_EQ(fault_of(wrong("no_such_file")), "there is no such file");
  EXPECT_EQ(fault_of(wrong_plugin_dir()), "there is no such file") << "a folder is none";
  const fs::path text_file = fs::path(testing::TempDir()) / "no_library.so";
  std::ofstream(text_file) << "This is no library.";
  EXPECT_EQ(fault_of(text_file), "not a library that can be loaded: file too short");
  std::ofstream(text_file) << std::string(10000, 'x');
  EXPECT_EQ(fault_of(text_file), "not a library that can be loaded: invalid ELF header");
  fs::remove(text_file);
}

TEST_F(LoadedPlugin, a_file_is_found_from_the_working_directory_not_the_loaders_path) {
  const fs::path here = fs::current_path();
  fs::current_path(fs::path(scripted_plugin_file()).parent_path());
  EXPECT_EQ(fault_of(fs::path(scripted_plugin_file()).filename()), "");
  EXPECT_EQ(fault_of("libc.so.6"), "there is no such file");
  fs::current_path(here);
}

TEST(BuildId, is_read_from_the_file) {
  EXPECT_EQ(host::build_id(scripted_plugin_file()), "0123456789abcdef");
  EXPECT_EQ(host::build_id(plugin_without_build_id_file()), "none");
  EXPECT_EQ(host::build_id(plugin_file()).size(), 40U);
}

TEST(BuildId, of_what_is_no_library_is_none) {
  EXPECT_EQ(host::build_id("/no/such/file"), "none");
  EXPECT_EQ(host::build_id(SOURCE_DIR), "none");
  EXPECT_EQ(host::build_id(SOURCE_DIR "/CMakeLists.txt"), "none");
}

TEST(BuildId, of_a_file_that_ends_early_is_none) {
  std::ifstream whole(scripted_plugin_file(), std::ios::binary);
  const std::string content{std::istreambuf_iterator<char>(whole), {}};
  const fs::path file = fs::path(testing::TempDir()) / "cut_library.so";
  for (const std::size_t size : {std::size_t{0}, std::size_t{16}, std::size_t{64}, std::size_t{200}}) {
    std::ofstream(file, std::ios::binary | std::ios::trunc) << content.substr(0, size);
    EXPECT_EQ(host::build_id(file), "none") << size << " bytes";
  }
  fs::remove(file);
}

}  // namespace
