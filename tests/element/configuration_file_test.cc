#include <functional>

#include "element/input/configuration.h"
#include "element/input/input_error.h"
#include "print.h"
#include "temporary_file.h"

namespace {

using element::read_configuration;

constexpr std::size_t kLargeXml = 100'000'000;
constexpr std::size_t kLargeJson = 20'000'000;
constexpr int kEntries = 50'000;

struct Fault {
  bool is_about_file;
  std::string text;
};

Fault fault_of(const std::filesystem::path &file) {
  try {
    read_configuration(test_schema(), file);
  } catch (const element::FileError &error) {
    return {true, error.what()};
  } catch (const element::InputError &error) {
    return {false, error.what()};
  }
  return {false, "accepted"};
}

/// A file of `size` bytes: kEntries layer-3 interfaces, each after a comment or blanks as long as need be.
void write_large(const std::filesystem::path &file, std::size_t size, const std::string &head, const std::string &tail,
                 const std::function<std::string(int entry, std::size_t size)> &entry_of_size) {
  std::ofstream out(file, std::ios::binary);
  out << head;
  const std::size_t left = size - head.size() - tail.size();
  for (int i = 0; i < kEntries; ++i) {
    const auto n = static_cast<std::size_t>(i);
    out << entry_of_size(i, left * (n + 1) / kEntries - left * n / kEntries);
  }
  out << tail;
}

std::string name_of(int entry) { return "vlan-" + std::to_string(100'000 + entry); }

void expect_all_entries(const element::Tree &tree) {
  const element::Node *list = tree.find("/config/l3-interface");
  ASSERT_NE(list, nullptr);
  EXPECT_EQ(list->children.size(), static_cast<std::size_t>(kEntries));
  const element::Node *last = tree.find("/config/l3-interface{" + name_of(kEntries - 1) + "}/vlan");
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(to_text(last->value), "4094");
}

TEST(ConfigurationFile, is_read_in_either_format_whatever_its_name) {
  EXPECT_EQ(
      print(read_configuration(test_schema(), TemporaryFile("{\"base:config\": {\"vlan\": [{\"id\": 5}]}}").path())),
      Lines{"/config/vlan{5}"});
  EXPECT_EQ(
      print(read_configuration(
          test_schema(), TemporaryFile("<config xmlns=\"urn:element:base\"><vlan><id>5</id></vlan></config>").path())),
      Lines{"/config/vlan{5}"});
}

TEST(ConfigurationFile, unreadable_file_is_told_from_wrong_content) {
  const Fault missing = fault_of("no-such-file.xml");
  EXPECT_TRUE(missing.is_about_file);
  EXPECT_EQ(missing.text, "no-such-file.xml: cannot be read: No such file or directory; expected a readable file");

  const Fault directory = fault_of("/");
  EXPECT_TRUE(directory.is_about_file);
  EXPECT_EQ(directory.text, "/: cannot be read: Is a directory; expected a readable file");

  const TemporaryFile empty("");
  const Fault content = fault_of(empty.path());
  EXPECT_FALSE(content.is_about_file);
  EXPECT_EQ(content.text,
            empty.path().string() + ": empty; expected XML elements or a JSON object ({} configures nothing)");
}

TEST(ConfigurationFile, large_xml) {
  const TemporaryFile file;
  write_large(file.path(), kLargeXml, "<config xmlns=\"urn:element:base\">\n", "</config>\n",
              [](int entry, std::size_t size) {
                const std::string element =
                    "--><l3-interface><name>" + name_of(entry) + "</name><vlan>4094</vlan></l3-interface>\n";
                return "<!--" + std::string(size - element.size() - 4, 'x') + element;
              });
  ASSERT_EQ(std::filesystem::file_size(file.path()), kLargeXml);
  expect_all_entries(read_configuration(test_schema(), file.path()));
}

TEST(ConfigurationFile, large_json) {
  const TemporaryFile file;
  const std::string head = "{\"base:config\": {\"l3-interface\": [";
  write_large(file.path(), kLargeJson, head, "]}}", [](int entry, std::size_t size) {
    const std::string element = "{\"name\": \"" + name_of(entry) + "\", \"vlan\": 4094}";
    const std::string comma = entry + 1 < kEntries ? "," : "";
    return std::string(size - element.size() - comma.size(), ' ') + element + comma;
  });
  ASSERT_EQ(std::filesystem::file_size(file.path()), kLargeJson);
  expect_all_entries(read_configuration(test_schema(), file.path()));
}

}  // namespace
