#include "tests/property/naive_pseudowires.h"

#include <algorithm>
#include <tuple>
#include <vector>

using scripted::address_word;
using scripted::Pw;

bool neighbor::operator<(const neighbor &other) const {
  return std::tie(kind, group, vpn, peer) < std::tie(other.kind, other.group, other.vpn, other.peer);
}

Pw neighbor::with(std::uint32_t pw_id) const { return {group, vpn, peer, pw_id, 1}; }

std::string neighbor::path() const {
  if (kind == kVpls) return scripted::vpls_pw_id_path(with(0));
  return scripted::vpws_pw_id_path(with(0), kind == kVpws ? "neighbor" : "backup-neighbor");
}

std::ostream &operator<<(std::ostream &out, const neighbor &one) {
  constexpr const char *kNames[] = {"vpws", "vpws backup", "vpls"};
  return out << kNames[one.kind] << ' ' << one.group << ' ' << one.vpn << ' ' << one.peer;
}

const std::uint32_t *pw_commit::value_set(const neighbor &at) const {
  const auto after = committing.find(at);
  if (after == committing.end()) return nullptr;
  const auto before = running.find(at);
  const bool is_set = before == running.end() || before->second != after->second || rewritten.count(at) != 0;
  return is_set ? &after->second : nullptr;
}

std::ostream &operator<<(std::ostream &out, const pw_commit &commit) {
  out << "\nrunning:\n";
  for (const auto &[at, pw_id] : commit.running) out << "  " << at << ": " << pw_id << '\n';
  out << "committing:\n";
  for (const auto &[at, pw_id] : commit.committing) {
    out << "  " << at << ": " << pw_id << (commit.value_set(at) != nullptr ? " (set)\n" : "\n");
  }
  return out << "pseudowires in the table: " << commit.pseudowires << '\n';
}

namespace naive {

namespace {

using pws = std::vector<Pw>;

bool is_same_key(const Pw &a, const Pw &b) { return a.peer == b.peer && a.pw_id == b.pw_id; }

// The list of a family, in list order.
pws listed(const pw_configuration &configuration, bool is_vpls) {
  pws list;
  for (const auto &[at, pw_id] : configuration) {
    if ((at.kind == neighbor::kVpls) == is_vpls) list.push_back(at.with(pw_id));
  }
  std::stable_sort(list.begin(), list.end(), [&](const Pw &a, const Pw &b) {
    const std::uint32_t a_word = address_word(a.peer.c_str());
    const std::uint32_t b_word = address_word(b.peer.c_str());
    if (is_vpls) return std::tuple(a.group, a.vpn, ntohl(a_word)) < std::tuple(b.group, b.vpn, ntohl(b_word));
    return std::tuple(a.group, a_word, a.pw_id) < std::tuple(b.group, b_word, b.pw_id);
  });
  return list;
}

pws in_reading_order(const pw_configuration &configuration) {
  pws all = listed(configuration, false);
  const pws vpls = listed(configuration, true);
  all.insert(all.end(), vpls.begin(), vpls.end());
  return all;
}

const Pw *find(const pws &list, const Pw &key) {
  for (const Pw &pw : list) {
    if (is_same_key(pw, key)) return &pw;
  }
  return nullptr;
}

std::string second_use(const pws &list) {
  pws seen;
  for (const Pw &pw : list) {
    if (find(seen, pw) != nullptr) {
      return "The PW ID " + std::to_string(pw.pw_id) + " must be unique per neighbor";
    }
    seen.push_back(pw);
  }
  return "";
}

pws without_second_uses(const pws &list) {
  pws seen;
  for (const Pw &pw : list) {
    if (find(seen, pw) == nullptr) seen.push_back(pw);
  }
  return seen;
}

pws in_map_order(pws list) {
  std::sort(list.begin(), list.end(), [](const Pw &a, const Pw &b) {
    return std::tuple(address_word(a.peer.c_str()), a.pw_id) < std::tuple(address_word(b.peer.c_str()), b.pw_id);
  });
  return list;
}

std::string formerly_assigned(const Pw &owner) {
  return "The PW ID " + std::to_string(owner.pw_id) + " was formerly assigned to VPN " + owner.vpn + " from Group " +
         owner.group + ". Delete VPN " + owner.vpn + ", its neighbor or backup-neighbor before applying changes";
}

// The pw-ids that are looked up for one pseudowire, in order. The backup neighbour's begins as the neighbour's.
std::vector<std::uint32_t> looked_up(const pw_commit &commit, const Pw &pw) {
  const auto set_at = [&](neighbor::kind_t kind, std::uint32_t otherwise) {
    const std::uint32_t *value = commit.value_set({kind, pw.group, pw.vpn, pw.peer});
    return value == nullptr ? otherwise : *value;
  };
  const std::uint32_t primary = set_at(neighbor::kVpws, 0);
  return {primary, set_at(neighbor::kVpwsBackup, primary), set_at(neighbor::kVpls, 0)};
}

std::string take_over(const pw_commit &commit, const pws &committing, const pws &running) {
  for (const Pw &pw : committing) {
    for (const std::uint32_t pw_id : looked_up(commit, pw)) {
      const Pw *owner = find(running, {"", "", pw.peer, pw_id, 0});
      if (owner != nullptr) return formerly_assigned(*owner);
    }
  }
  return "";
}

std::string lines(const pws &list) {
  std::string text;
  for (const Pw &pw : list) {
    text += ".     [" + pw.group + ", " + pw.vpn + ", " + pw.peer + ", " + std::to_string(pw.pw_id) + "]\n";
  }
  return text;
}

}  // namespace

std::ostream &operator<<(std::ostream &out, const pw_verdict &verdict) {
  return out << (verdict.message.empty() ? verdict.trace : verdict.message);
}

pw_verdict judge(const pw_commit &commit) {
  if (commit.pseudowires > 1024) {
    return {"Maximum number of neighbors has been exceeded. Attempt to configure " +
                std::to_string(commit.pseudowires) + " of 1024 allowed",
            ""};
  }
  const pws read = in_reading_order(commit.committing);
  std::string message = second_use(read);
  if (!message.empty()) return {message, ""};

  const pws committing = in_map_order(read);
  const pws running = in_map_order(without_second_uses(in_reading_order(commit.running)));
  message = take_over(commit, committing, running);
  if (!message.empty()) return {message, ""};

  return {"", "\n. Running mpls l2vpn PWs config:\n" + lines(running) +
                  ". end.\n. Committing mpls l2vpn PWs config:\n" + lines(committing) + ". end.\n"};
}

}  // namespace naive
