#include "diagnosis/oracle.h"

#include <utility>

namespace diagnosis {
namespace {

// Questions of more entries are kept as long as there is room for them: of these numbers all of them together.
constexpr std::size_t kAlwaysKept = 128;
constexpr std::size_t kRoomForLarge = 4'000'000;

}  // namespace

Oracle::Oracle(const host::Plugin &plugin, host::HostSession &session, const Entries &entries,
               const RevertibleChanges &changes, Messages &messages, const Options &options)
    : plugin_(plugin),
      session_(session),
      entries_(entries),
      changes_(changes),
      messages_(messages),
      projector_(session.profile()),
      budget_(options) {
  projector_.keep(entries.tree().running(), entries.tree().candidate());
}

// Questions about the same two configurations are one question, which is asked once: an addition that is taken back is
// left out, what is taken back of entries that are left out is not told.
RestrictedCommit Oracle::normalised(RestrictedCommit commit) const {
  if (commit.is_start) {
    commit.reverted.clear();
    std::erase_if(commit.entries, [this](std::uint32_t entry) { return entries_.node(entry).before == nullptr; });
    return commit;
  }
  commit.reverted = united(commit.reverted, taken_back_);
  if (commit.reverted.empty()) return commit;
  commit.entries = entries_.without(commit.entries, changes_.gone_without(commit.reverted));
  std::erase_if(commit.reverted, [&](std::uint32_t part) {
    const std::uint32_t entry = entries_.tree()[changes_[part].node].entry;
    return entry != kNone && !contains(commit.entries, entry);
  });
  return commit;
}

std::optional<NumberSet> Oracle::ask(const RestrictedCommit &commit) {
  const bool is_normal = !commit.is_start && commit.reverted.empty() && taken_back_.empty();
  return is_normal ? ask_normalised(commit) : ask_normalised(normalised(commit));
}

std::optional<NumberSet> Oracle::ask_normalised(const RestrictedCommit &commit) {
  const auto known = known_.find(commit);
  if (known != known_.end()) return known->second;
  std::optional<NumberSet> answer =
      ask_library([&] { return make_transaction(commit, entries_, changes_, projector_); });
  if (answer && has_room_for(commit)) known_.emplace(commit, *answer);
  return answer;
}

bool Oracle::has_room_for(const RestrictedCommit &commit) {
  const std::size_t size = commit.entries.size() + commit.reverted.size();
  if (size <= kAlwaysKept) return true;
  if (size > kRoomForLarge - kept_of_large_) return false;
  kept_of_large_ += size;
  return true;
}

std::optional<NumberSet> Oracle::ask(element::Tree running, element::Tree candidate) {
  return ask_library([&] { return element::make_transaction(std::move(running), std::move(candidate), projector_); });
}

std::optional<NumberSet> Oracle::ask_library(const std::function<std::unique_ptr<element::Transaction>()> &make) {
  if (budget_.is_used_up()) return std::nullopt;
  budget_.start_call(findings);
  try {
    return messages_.numbers_of(
        host::validate_commit(plugin_, session_, *make(), {.all_points = true, .keep_accepted = false}));
  } catch (const host::ContractError &error) {
    budget_.end_with_violation(error.what());
    return std::nullopt;
  }
}

bool Oracle::reproduces(const NumberSet &entries, std::uint32_t message) {
  const std::optional<NumberSet> answer = ask({entries, {}});
  return answer && contains(*answer, message);
}

std::size_t Oracle::Hash::operator()(const RestrictedCommit &commit) const {
  std::size_t seed = commit.is_start ? 1 : 0;
  for (const std::uint32_t entry : commit.entries) seed = seed * 0x9E3779B97F4A7C15U + entry + 1;
  for (const std::uint32_t part : commit.reverted) seed = (seed ^ 0x5bd1e995U) * 0x9E3779B97F4A7C15U + part + 1;
  return seed ^ (seed >> 29U);
}

}  // namespace diagnosis
