#include "tests/diagnosis/shorthand.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <sstream>

#include "element/datastore/path.h"
#include "tests/element/print.h"

namespace shorthand {
namespace {

using Words = std::vector<std::string>;

Words words_of(const std::string &line) {
  std::istringstream in(line);
  Words words;
  for (std::string word; in >> word;) words.push_back(word);
  return words;
}

Lines attachment(const std::string &vpn, bool is_vpls, const Words &words) {
  const std::string around = vpn + (is_vpls ? "/bridge-domain" : "");
  const std::string path = around + "/access-interface{" + words[3] + "}";
  Lines lines{path};
  if (words[4] == "vlan") lines.push_back((is_vpls ? around : path) + "/dot1q = " + words[5]);
  if (words[4] == "untagged") lines.push_back(path + "/encapsulation/untagged");
  if (words[4] != "range") return lines;
  std::istringstream ranges(words[5]);
  for (std::string range; std::getline(ranges, range, ',');) {
    std::replace(range.begin(), range.end(), '-', ' ');
    lines.push_back(path + "/encapsulation/dot1q-range{" + range + "}");
  }
  return lines;
}

Lines vpn_lines(const Words &words) {
  const bool is_vpls = words[0] == "vpls";
  const std::string path =
      fmt::format("/mpls/l2vpn-config/l2vpn/{}-group{{{}}}/vpn{{{}}}", words[0], words[1], words[2]);
  if (words.size() == 3) return {path};
  const std::string &what = words[3];
  if (what == "neighbor" || what == "backup-neighbor") {
    return {fmt::format("{}{}/{}{{{}}}/pw-id = {}", path, is_vpls ? "/vfi" : "", what, words[4], words[5])};
  }
  if (what == "dot1q") return {path + "/bridge-domain/dot1q = " + words[4]};
  if (what == "mtu") return {path + "/bridge-domain/bridge-mtu = " + words[4]};
  if (what == "tls") return {path + "/bridge-domain/transparent-lan-service"};
  return attachment(path, is_vpls, words);
}

Lines service_port_lines(const Words &words) {
  const std::string path = "/config/service-port{" + words[1] + "}";
  if (words.size() == 2) return {path};
  return {path + "/match/vlan/vlan-id/" + (words[2] == "any" ? "any" : "vid = " + words[3])};
}

Lines written_out(const std::string &line) {
  const Words words = words_of(line);
  if (words[0] == "vpls" || words[0] == "vpws") return vpn_lines(words);
  if (words[0] == "member") return {"/config/vlan{" + words[1] + "}/interface{" + words[2] + "}"};
  if (words[0] == "snooping") return {"/config/igmp-snooping{" + words[1] + "}/interface{" + words[2] + "}"};
  if (words[0] == "service-port") return service_port_lines(words);
  return {"/config/l3-interface{" + words[1] + "}/vlan = " + words[2], "/mpls/ldp/interface{" + words[1] + "}"};
}

std::vector<std::string> short_paths(const std::vector<std::string> &paths) {
  std::vector<std::string> result;
  for (const std::string &path : paths) result.push_back(short_path(path));
  std::sort(result.begin(), result.end());
  return result;
}

std::string short_finding(const brute_force::Message &message, const std::string &standing, std::size_t enough,
                          const std::set<std::string> &parties, const std::set<std::string> &triggers) {
  std::string text = message.rule + (standing == "new" ? "" : " " + standing);
  if (brute_force::is_of_counting_rule(message)) text += fmt::format(", {} too many", enough);
  text += fmt::format(": {}", fmt::join(short_paths({parties.begin(), parties.end()}), ", "));
  if (triggers.empty()) return text;
  return text + fmt::format("; looked at for {}", fmt::join(short_paths({triggers.begin(), triggers.end()}), ", "));
}

}  // namespace

element::Tree tree_of_short(const std::vector<std::string> &lines) {
  Lines all;
  for (const std::string &line : lines) {
    const Lines some = written_out(line);
    all.insert(all.end(), some.begin(), some.end());
  }
  return tree_of(all);
}

brute_force::Configurations commit_of(const std::vector<std::string> &running,
                                      const std::vector<std::string> &candidate) {
  return {tree_of_short(running), tree_of_short(candidate)};
}

brute_force::Configurations commit_of(const std::vector<std::string> &both, const std::vector<std::string> &removed,
                                      const std::vector<std::string> &added) {
  std::vector<std::string> running = both;
  std::vector<std::string> candidate = both;
  running.insert(running.end(), removed.begin(), removed.end());
  candidate.insert(candidate.end(), added.begin(), added.end());
  return commit_of(running, candidate);
}

std::string short_path(const std::string &path) {
  std::string text;
  for (const element::PathStep &step : element::parse_path(test_schema(), path)) {
    const std::string &name = step.schema->name;
    if (name == "vpls-group") text = "vpls";
    if (name == "vpws-group") text = "vpws";
    if (name == "vlan") text = "member";
    if (name == "igmp-snooping") text = "snooping";
    if (name == "service-port") text = name;
    if (name == "l3-interface") text = "layer-3";
    if (name == "interface" && text.empty()) text = "uplink";
    if (name == "neighbor" || name == "backup-neighbor") text += " " + name;
    if (step.keys.empty() && step.schema->kind == element::NodeKind::leaf) text += " " + name;
    for (const element::Value &key : step.keys) text += " " + element::to_text(key);
  }
  return text;
}

std::vector<std::string> short_findings(const brute_force::ConflictSearch &search) {
  std::vector<std::string> texts;
  for (const brute_force::ExpectedFinding &finding : expected_findings(search)) {
    brute_force::EntrySet parties = 0;
    brute_force::EntrySet triggers = 0;
    for (const brute_force::Conflict &conflict : finding) {
      parties |= conflict.parties;
      triggers |= conflict.triggers;
    }
    const std::vector<std::string> party_paths = search.entries().paths(parties);
    const std::vector<std::string> trigger_paths = search.entries().paths(triggers & ~parties);
    texts.push_back(short_finding(finding.front().message, finding_text(search, finding).standing,
                                  finding.front().enough, {party_paths.begin(), party_paths.end()},
                                  {trigger_paths.begin(), trigger_paths.end()}));
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

std::vector<std::string> short_findings(const diagnosis::Diagnosis &diagnosis) {
  std::vector<std::string> texts;
  for (const diagnosis::Finding &finding : diagnosis.findings) {
    std::set<std::string> parties;
    std::set<std::string> triggers;
    for (const diagnosis::Party &party : finding.parties) parties.insert(to_text(party.path));
    for (const diagnosis::Party &trigger : finding.triggers) triggers.insert(to_text(trigger.path));
    texts.push_back(short_finding(brute_force::message_of(finding.verdict), finding.is_preexisting ? "in force" : "new",
                                  finding.enough, parties, triggers));
  }
  std::sort(texts.begin(), texts.end());
  return texts;
}

std::string short_advice(const std::set<brute_force::PartSet> &alternatives) {
  std::vector<std::string> texts;
  for (const brute_force::PartSet &set : alternatives) {
    std::vector<std::string> parts;
    for (const brute_force::Part &part : set) {
      parts.push_back(" +~-"[static_cast<std::size_t>(part.status)] + short_path(part.path));
    }
    std::sort(parts.begin(), parts.end());
    texts.push_back(fmt::format("{}", fmt::join(parts, " and ")));
  }
  std::sort(texts.begin(), texts.end());
  return fmt::format("{}", fmt::join(texts, " or "));
}

}  // namespace shorthand
