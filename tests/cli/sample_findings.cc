#include "tests/cli/sample_findings.h"

#include <sstream>

#include "report/finding.h"
#include "report/json/series_json.h"
#include "report/json/verdict_json.h"
using report::CommitReport;
using report::FilePlace;
using report::Finding;
using report::NodeReport;
using report::PartReport;
using report::PartyReport;

const std::string hostile_text =
    "a\"b'c<d>&amp;]]>::error file=x,line=1::y%0A,:\r\n\x1b[31mred\x01 [link](https://example.invalid) {0} caf\xc3";

namespace {

const std::string l2vpn = "/mpls/l2vpn-config/l2vpn/";

NodeReport added(const std::string &path, std::size_t line) {
  NodeReport node;
  node.status = report::ChangeStatus::added;
  node.path = path;
  node.candidate = FilePlace{"night/42/candidate.xml", line};
  return node;
}

NodeReport unchanged(const std::string &path, std::size_t line) {
  NodeReport node;
  node.status = report::ChangeStatus::unchanged;
  node.path = path;
  node.running = FilePlace{"night/42/running.xml", line};
  node.candidate = FilePlace{"night/42/candidate.xml", line + 20};
  return node;
}

NodeReport with_value(NodeReport node, const std::string &value) {
  (node.status == report::ChangeStatus::added ? node.new_value : node.old_value) = value;
  return node;
}

PartyReport branches_south() {
  const std::string path = l2vpn + "vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}";
  PartyReport party;
  party.node = added(path, 11);
  party.group = "vpws-group branches";
  party.vpn = "south";
  party.interface = "gigabit-ethernet-1/1/1";
  party.details = {with_value(added(path + "/dot1q", 13), "210")};
  return party;
}

PartyReport campus_data() {
  const std::string path = l2vpn + "vpls-group{campus}/vpn{data}/bridge-domain";
  PartyReport party;
  party.node = unchanged(path + "/access-interface{gigabit-ethernet-1/1/1}", 16);
  party.group = "vpls-group campus";
  party.vpn = "data";
  party.interface = "gigabit-ethernet-1/1/1";
  party.details = {with_value(unchanged(path + "/dot1q", 15), "210")};
  return party;
}

/// One conflict of all parties.
void explain(Finding &finding) {
  finding.is_minimal = true;
  finding.conflicts = {{finding.point, finding.path, finding.message, {}, {}}};
  for (std::size_t i = 0; i < finding.parties.size(); ++i) finding.conflicts[0].parties.push_back(i);
  finding.advice.is_minimal = true;
}

}  // namespace

Finding bare(Finding finding) {
  finding.parties.clear();
  finding.conflicts.clear();
  finding.advice = {};
  finding.is_minimal = false;
  return finding;
}

Finding in_force(Finding finding) {
  PartyReport trigger;
  trigger.node = added(l2vpn + "vpws-group{branches}/vpn{new}", 30);
  trigger.group = "vpws-group branches";
  trigger.vpn = "new";
  finding.is_preexisting = true;
  finding.triggers = {trigger};
  finding.conflicts[0].triggers = {0};
  finding.advice.alternatives = {{{trigger.node, {}}}};
  return finding;
}

Finding same_dot1q() {
  Finding finding;
  finding.rule = "access-same-dot1q";
  finding.from_device = true;
  finding.point = "vpn_access_valp";
  finding.path = l2vpn + "vpws-group{branches}/vpn{south}/access-interface{gigabit-ethernet-1/1/1}";
  finding.message =
      "vpls-group campus vpn data and vpws-group branches vpn south must not be configured with the same dot1q on "
      "interface gigabit-ethernet-1/1/1";
  finding.parties = {branches_south(), campus_data()};
  explain(finding);
  finding.advice.alternatives = {{{finding.parties[0].node, {}}}};
  finding.place = {"night/42/candidate.xml", 11};
  return finding;
}

Finding uplink_warning() {
  Finding finding;
  finding.rule = "member-on-uplink";
  finding.is_warning = true;
  finding.point = "vlm_memb_valp";
  finding.path = "/KZ-VLAN-MANAGER-MIB/vlanMgrStaticMemberTable";
  finding.message = "Some MPLS VPN's have access and uplink interfaces in common.";
  PartyReport member;
  member.node = added("/config/vlan{100}/interface{gigabit-ethernet-1/1/2}", 40);
  member.interface = "gigabit-ethernet-1/1/2";
  finding.parties = {member};
  explain(finding);
  finding.advice.alternatives = {{{member.node, {}}}};
  finding.place = {"night/42/candidate.xml", 40};
  return finding;
}

Finding too_many_vpns(std::size_t vpns) {
  Finding finding;
  finding.rule = "vpn-limit";
  finding.from_device = true;
  finding.point = "vpn_overflow_valp";
  finding.path = l2vpn + "vpls-group{campus}/vpn{v1}";
  finding.message =
      "Maximum number of VPNs has been exceeded. Attempt to configure " + std::to_string(vpns) + " of 4 allowed";
  for (std::size_t i = 1; i <= vpns; ++i) {
    PartyReport party;
    party.node = added(l2vpn + "vpls-group{campus}/vpn{v" + std::to_string(i) + "}", 10 * i);
    party.group = "vpls-group campus";
    party.vpn = "v" + std::to_string(i);
    finding.parties.push_back(party);
    finding.advice.choices.push_back({party.node, {}});
  }
  explain(finding);
  finding.enough = vpns - 4;
  finding.advice.enough = vpns - 4;
  finding.place = {"night/42/candidate.xml", 10};
  return finding;
}

Finding hostile() {
  Finding finding = same_dot1q();
  finding.message = hostile_text;
  finding.path += hostile_text;
  for (PartyReport &party : finding.parties) {
    party.vpn = hostile_text;
    party.node.path += hostile_text;
  }
  finding.parties[0].node.candidate->file = hostile_text;
  finding.parties[0].details[0].new_value = hostile_text;
  finding.conflicts[0].message = hostile_text;
  finding.conflicts[0].path += hostile_text;
  PartReport &part = finding.advice.alternatives[0][0];
  part.node.path += hostile_text;
  part.details = {finding.parties[0].details[0], finding.parties[1].details[0]};
  finding.triggers = {finding.parties[1]};
  finding.repairs = {{report::RepairKind::interface_name, "/" + hostile_text, finding.place, {hostile_text}, false}};
  finding.place.file = hostile_text;
  return finding;
}

CommitReport decided(std::vector<Finding> findings) {
  CommitReport commit;
  commit.name = "night/42";
  commit.input_arguments = "night/42";
  commit.decision = host::Decision::accepted;
  for (const Finding &finding : findings) {
    if (finding.is_warning && commit.decision == host::Decision::accepted) {
      commit.decision = host::Decision::accepted_with_warnings;
    }
    if (!finding.is_warning) commit.decision = host::Decision::rejected;
  }
  commit.findings = std::move(findings);
  commit.search = {.all_faults = true,
                   .calls = 41,
                   .budget_calls = 20000,
                   .budget_seconds = 60,
                   .end = report::SearchEnd::complete,
                   .unproven_rules = {},
                   .contract_violation = ""};
  return commit;
}

std::string single_document(const report::CheckReport &report) {
  std::ostringstream out;
  report::SeriesJson json(out);
  report::CommitReport commit = report.commit;
  commit.decision = report.verdict.decision;
  json.write({commit, 1, report::verdict_json(report)});
  json.finish({}, 1);
  return out.str();
}
