// The pages and the plug-in have the same messages: the read-only data of the built library and its sources show it.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <regex>
#include <set>

#include "rules/rule.h"
#include "source_dir.h"
#include "tests/support/build_under_test.h"

namespace {

namespace fs = std::filesystem;

using Texts = std::set<std::string>;

/// The section .rodata of the library: every string literal that the compiler did not turn into instructions, each
/// with a NUL after it.
std::string read_only_data() {
  const std::string command = std::string("objcopy -O binary -j .rodata '") + plugin_file() + "' /dev/stdout";
  const std::unique_ptr<std::FILE, int (*)(std::FILE *)> pipe(popen(command.c_str(), "r"), pclose);
  std::string data;
  for (int byte = std::fgetc(pipe.get()); byte != EOF; byte = std::fgetc(pipe.get())) data += static_cast<char>(byte);
  return data;
}

bool is_printable(char c) { return (c >= ' ' && c <= '~') || c == '\n'; }

/// The text at the end of these bytes: numbers may stand before a text without a NUL between.
std::string printable_end(const std::string &bytes) {
  const auto begin = std::find_if_not(bytes.rbegin(), bytes.rend(), is_printable).base();
  return {begin, bytes.end()};
}

/// Paths and the texts of type assertions have blanks as well, but they are no prose.
bool is_prose(const std::string &text) {
  return text.find(' ') != text.npos && text.find('/') == text.npos && text.find("->type == ") == text.npos;
}

Texts prose_of_library() {
  Texts texts;
  const std::string data = read_only_data();
  for (std::size_t at = 0; at < data.size();) {
    const std::size_t end = std::min(data.find('\0', at), data.size());
    const std::string text = printable_end(data.substr(at, end - at));
    if (is_prose(text)) texts.insert(text);
    at = end + 1;
  }
  return texts;
}

/// Some messages are put together before they are set with the format "%s". These are their parts.
const Texts kPartsOfMessages{
    "VPWS Group name ",
    " VPN name ",
    " contains invalid characters (allowed characters: 0-9, a-z, A-Z, _, -, @, <>, &, =, :, ., (), +)",
    "All VPLS assigned to interface ",
    "will run as TLS since vpls-group ",
    " vpn-name ",
    " has port based TLS behavior",
};

/// The pages whose message stands nowhere as a whole.
const Texts kMessagesInParts{"vpws-group-name", "vpws-vpn-name"};

/// The other texts with a blank: prefixes of names, keys of paths, the trace, the C++ library's errors.
const Texts kOtherTexts{
    "vpls-group ",
    "vpws-group ",
    "vpn ",
    "%s{1 %d %d}",
    "{1 ",
    " ",
    ", ",
    ".     [",
    ". end.\n",
    ". Running mpls l2vpn PWs config:\n",
    ". Committing mpls l2vpn PWs config:\n",
    "%s:%u: %s: Assertion `%s' failed.\n",
    "basic_string: construction from null is not valid",
    "%s: __pos (which is %zu) > this->size() (which is %zu)",
    "%s: __pos (which is %zu) > __size (which is %zu)",
    "cannot create std::vector larger than max_size()",
};

Texts messages_of_pages() {
  Texts messages;
  for (const rules::Rule &rule : rules::all_rules()) messages.insert(rule.message);
  return messages;
}

bool is_known(const std::string &text) {
  static const Texts messages = messages_of_pages();
  return messages.count(text) + kPartsOfMessages.count(text) + kOtherTexts.count(text) != 0;
}

/// The last bytes of a number that stands before the text may be printable.
bool is_known_behind_number(const std::string &text) {
  constexpr std::size_t kNumberSize = 8;
  for (std::size_t skipped = 0; skipped <= std::min(kNumberSize, text.size()); ++skipped) {
    if (is_known(text.substr(skipped))) return true;
  }
  return false;
}

std::string content_of(const fs::path &file) {
  std::ifstream stream(file);
  return {std::istreambuf_iterator<char>(stream), {}};
}

/// The longest piece of a message without a name or number in it.
std::string longest_literal(const std::string &message) {
  static const std::regex conversion("%[sdu]");
  std::string longest;
  for (std::sregex_token_iterator it(message.begin(), message.end(), conversion, -1), end; it != end; ++it) {
    if (static_cast<std::size_t>(it->length()) > longest.size()) longest = *it;
  }
  return longest;
}

TEST(LibraryMessages, every_message_of_the_library_has_a_page) {
  if (is_instrumented()) GTEST_SKIP() << "a sanitizer or the count of lines adds texts of its own";
  const Texts texts = prose_of_library();
  EXPECT_GE(texts.size(), 30u);
  for (const std::string &text : texts) {
    EXPECT_TRUE(is_known_behind_number(text))
        << "\"" << text << "\" is neither the message of a page in docs/rules nor listed here";
  }
}

TEST(LibraryMessages, every_page_has_a_message_of_the_library) {
  const std::string data = read_only_data();
  for (const rules::Rule &rule : rules::all_rules()) {
    if (kMessagesInParts.count(rule.id) != 0) continue;
    EXPECT_NE(data.find(rule.message + '\0'), data.npos)
        << rule.id << ": the library has no \"" << rule.message << "\"";
  }
}

TEST(LibraryMessages, the_source_of_every_page_holds_its_message) {
  for (const rules::Rule &rule : rules::all_rules()) {
    const fs::path file = fs::path(SOURCE_DIR) / "src/lib" / rule.source;
    const bool is_whole = kMessagesInParts.count(rule.id) == 0;
    const std::string text = is_whole ? '"' + rule.message + '"' : longest_literal(rule.message);
    EXPECT_NE(content_of(file).find(text), std::string::npos) << rule.id << ": " << file << " has no " << text;
  }
}

}  // namespace
