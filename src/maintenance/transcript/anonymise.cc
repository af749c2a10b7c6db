#include "maintenance/transcript/anonymise.h"

#include <array>
#include <sstream>

#include "maintenance/transcript/operator_names.h"
#include "maintenance/transcript/pseudonyms.h"
#include "rules/rule.h"

namespace transcript {

namespace {

using recording::AgentValue;
using recording::Call;

// What the rules look for in names, and what they write before them.
constexpr std::array<std::string_view, 4> kWordsOfRules{"service", "vpls-group", "vpws-group", "vpn"};

bool is_number(std::string_view text) { return text.find_first_not_of("0123456789") == std::string_view::npos; }

bool holds_word_of_rules(const std::string &name) {
  for (const std::string_view word : kWordsOfRules) {
    if (name.find(word) != std::string::npos) return true;
  }
  return false;
}

/// Words that stand in messages and in the trace: in such a text, a name that is one of them cannot be told from it.
std::set<std::string> words_of_texts() {
  std::set<std::string> words{"Running", "mpls", "l2vpn", "PWs", "config", "end", "Committing"};
  for (const rules::Rule &rule : rules::all_rules()) {
    std::string text = rule.message;
    for (char &c : text) {
      if (c == ',' || c == '.' || c == ':') c = ' ';
    }
    std::istringstream stream(text);
    for (std::string word; stream >> word;) words.insert(word);
  }
  return words;
}

/// Replaces names wherever a recording holds texts.
class Replacer {
 public:
  explicit Replacer(const Pseudonyms &pseudonyms) : pseudonyms_(pseudonyms) {}

  void replace(recording::Recording &recording) const {
    replace(recording.header.path);
    if (recording.header.value) replace(*recording.header.value);
    replace(recording.calls);
    if (recording.trailer.message) replace(*recording.trailer.message);
  }

 private:
  void replace(std::string &text) const {
    const bool is_path = text.rfind('/', 0) == 0 && text.find('{') != std::string::npos;
    text = is_path ? pseudonyms_.in_path(text, false) : pseudonyms_.in_text(text);
  }

  void replace(AgentValue &value) const {
    const bool has_text = value.type == recording::kBuffer || value.type == recording::kString;
    if (has_text) value.text = pseudonyms_.in_text(value.text);
  }

  void replace(recording::KeyPath &path) const {
    for (auto &element : path) {
      for (AgentValue &value : element) replace(value);
    }
  }

  void replace(recording::Items &items) const {
    for (recording::Item &item : items) {
      if (auto *text = std::get_if<std::string>(&item)) replace(*text);
      if (auto *value = std::get_if<AgentValue>(&item)) replace(*value);
    }
  }

  void replace(std::vector<Call> &calls) const {
    for (Call &call : calls) replace(call);
  }

  // A path may be the format itself.
  void replace(Call &call) const {
    replace(call.arguments);
    replace(call.outputs);
    if (call.format) {
      replace(call.format->arguments);
      if (call.format->text.rfind('/', 0) == 0) call.format->text = pseudonyms_.in_path(call.format->text, true);
    }
    for (recording::Callback &callback : call.callbacks) {
      replace(callback.path);
      if (callback.old_value) replace(*callback.old_value);
      if (callback.new_value) replace(*callback.new_value);
      replace(callback.calls);
    }
  }

  const Pseudonyms &pseudonyms_;
};

}  // namespace

void anonymise(recording::Recording &recording, const element::Schema &schema) {
  const FoundNames found = find_names(recording, schema);
  const std::set<std::string> words = words_of_texts();
  std::set<std::string> names;
  std::set<std::string> kept;
  for (const std::string &name : found.of_operator) {
    const bool stays =
        is_number(name) || holds_word_of_rules(name) || found.of_interfaces.count(name) != 0 || words.count(name) != 0;
    (stays ? kept : names).insert(name);
  }
  Replacer(Pseudonyms(names, kept)).replace(recording);
}

}  // namespace transcript
