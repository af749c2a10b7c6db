#include "maintenance/transcript/pseudonyms.h"

#include <memory>
#include <utility>

namespace transcript {

namespace {

/// The first character of a kind; 0 for one that is of none.
char kind_of(char c) {
  if (c >= 'a' && c <= 'z') return 'a';
  if (c >= 'A' && c <= 'Z') return 'A';
  if (c >= '0' && c <= '9') return '0';
  return '\0';
}

/// The names as a trie, a character a level.
struct Trie {
  std::map<char, std::unique_ptr<Trie>> next;
  bool is_kept = false;  ///< a kept name begins so
};

void insert(Trie &trie, std::string_view name, bool is_kept) {
  Trie *at = &trie;
  for (const char c : name) {
    std::unique_ptr<Trie> &next = at->next[c];
    if (next == nullptr) next = std::make_unique<Trie>();
    at = next.get();
    at->is_kept |= is_kept;
  }
}

// The characters of one kind that follow a prefix are numbered from the kind's lowest on, so that their order stays.
// One that begins a kept name stays itself, and those above it are numbered from the one behind it on.
char pseudonym_of(const Trie &trie, char c) {
  const char first = kind_of(c);
  if (first == '\0' || trie.next.at(c)->is_kept) return c;
  char result = first;
  for (const auto &[other, after] : trie.next) {
    if (other >= c || kind_of(other) != first) continue;
    result = static_cast<char>((after->is_kept ? other : result) + 1);
  }
  return result;
}

std::string pseudonym_of(const Trie &trie, std::string_view name) {
  std::string pseudonym;
  const Trie *at = &trie;
  for (const char c : name) {
    pseudonym += pseudonym_of(*at, c);
    at = at->next.at(c).get();
  }
  return pseudonym;
}

std::string with_doubled_percent_signs(std::string_view text) {
  std::string result;
  for (const char c : text) {
    result += c;
    if (c == '%') result += c;
  }
  return result;
}

bool is_of_name(char c) {
  return kind_of(c) != '\0' || c == '-' || c == '_' || c == '/' || c == '%' || static_cast<unsigned char>(c) >= 0x80;
}

bool is_bounded(std::string_view text, std::size_t begin, std::size_t end) {
  const bool before = begin == 0 || !is_of_name(text[begin - 1]);
  return before && (end == text.size() || !is_of_name(text[end]));
}

}  // namespace

Pseudonyms::Pseudonyms(const std::set<std::string> &names, const std::set<std::string> &kept) {
  Trie trie;
  for (const std::string &name : names) insert(trie, name, false);
  for (const std::string &name : kept) insert(trie, name, true);
  for (const std::string &name : names) {
    const std::string pseudonym = pseudonym_of(trie, name);
    replacements_[name] = pseudonym;
    in_format_[with_doubled_percent_signs(name)] = with_doubled_percent_signs(pseudonym);
  }
}

std::string Pseudonyms::replaced(std::string_view text, const Replacements &replacements) {
  std::string result;
  std::size_t at = 0;
  while (at < text.size()) {
    const std::pair<const std::string, std::string> *longest = nullptr;
    for (const auto &replacement : replacements) {
      const std::string &name = replacement.first;
      const bool fits = text.compare(at, name.size(), name) == 0 && is_bounded(text, at, at + name.size());
      if (fits && (longest == nullptr || name.size() > longest->first.size())) longest = &replacement;
    }
    if (longest == nullptr) {
      result += text[at++];
    } else {
      result += longest->second;
      at += longest->first.size();
    }
  }
  return result;
}

std::string Pseudonyms::in_text(std::string_view text) const {
  const auto whole = replacements_.find(text);
  return whole == replacements_.end() ? replaced(text, replacements_) : whole->second;
}

std::string Pseudonyms::in_path(std::string_view path, bool is_format) const {
  std::string result;
  while (true) {
    const std::size_t open = path.find('{');
    const std::size_t close = path.find('}', open == std::string_view::npos ? path.size() : open);
    if (open == std::string_view::npos || close == std::string_view::npos) return result + std::string(path);
    result += path.substr(0, open + 1);
    result += replaced(path.substr(open + 1, close - open - 1), is_format ? in_format_ : replacements_);
    result += '}';
    path.remove_prefix(close + 1);
  }
}

}  // namespace transcript
