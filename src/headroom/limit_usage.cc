#include "headroom/limit_usage.h"

#include "headroom/boundary.h"
#include "rules/limit_message.h"
#include "rules/rule.h"

namespace headroom {
namespace {

/// How many there are and how many there may be.
struct Count {
  std::int64_t configured = 0;
  std::int64_t allowed = 0;
  std::int64_t excess() const { return configured - allowed; }
};

/// What is known before the limit is looked at.
struct Start {
  bool is_accepted = true;
  std::uint64_t expected = 0;
};

/// The count that the limit's own message gives for the candidate with `more` additions; nothing for other messages.
std::optional<Count> own_count(const LimitProbe &probe, const Answer &answer, std::uint64_t more) {
  const bool is_own = answer.rule == probe.rule && answer.message.find(probe.named) != std::string::npos;
  const auto numbers = is_own ? rules::parse_limit_message(answer.message) : std::nullopt;
  if (!numbers) return std::nullopt;

  if (!probe.used)
    return numbers->configured ? std::optional(Count{*numbers->configured, numbers->allowed}) : std::nullopt;
  const std::int64_t counted = *probe.used + static_cast<std::int64_t>(more);
  // Two VPNs may have too many, and the message names none.
  if (numbers->configured.value_or(counted) != counted) return std::nullopt;
  return Count{counted, numbers->allowed};
}

/// Rejections of the candidate without additions.
struct Blocker {
  std::optional<Answer> rejection;  ///< by the limit's own point
  Points other_points;              ///< other points that reject
};

Blocker find_blocker(const Validator &validator, const TrialCommit &trial, std::string_view own_point) {
  Blocker blocker;
  for (const host::PointVerdict &point : validator.decide(trial, true).points) {
    if (point.answer != host::Answer::rejected) continue;
    if (point.point != own_point) {
      blocker.other_points.insert(point.point);
    } else if (!blocker.rejection) {
      blocker.rejection = answer_of(point);
    }
  }
  return blocker;
}

void set_count(LimitUsage &usage, const Count &count, std::uint64_t more) {
  usage.used = count.configured - static_cast<std::int64_t>(more);
  usage.allowed = count.allowed;
}

/// Completes the usage from the rejection of `rejected` more, the smallest number that is rejected; 0: the candidate
/// itself is.
void conclude(LimitUsage &usage, const LimitProbe &probe, const Answer &rejection, std::uint64_t rejected) {
  usage.stop = rejection;
  usage.state = LimitState::stopped;
  if (rejected > 0) usage.left = static_cast<std::int64_t>(rejected) - 1;

  const auto count = own_count(probe, rejection, rejected);
  if (!count) return;
  set_count(usage, *count, rejected);
  const bool is_above = rejected == 0 || (rejected == 1 && count->excess() > 1);
  usage.state = is_above ? LimitState::exceeded : LimitState::measured;
  if (is_above) usage.left = static_cast<std::int64_t>(rejected) - count->excess();
}

Boundary find_boundary_of(const Validator &validator, const LimitProbe &probe, const FillStrategy &strategy,
                          const Points &ignored, std::uint64_t expected) {
  const auto rejection = [&](std::uint64_t more) { return validator.rejection(strategy.trial(more), ignored); };
  const auto excess = [&](const Answer &answer, std::uint64_t more) -> std::optional<std::uint64_t> {
    const auto count = own_count(probe, answer, more);
    if (!count || count->excess() < 1) return std::nullopt;
    return static_cast<std::uint64_t>(count->excess());
  };
  return find_boundary(strategy.room, expected, rejection, excess);
}

LimitUsage usage_of(const LimitProbe &probe) {
  LimitUsage usage;
  usage.limit = probe.limit;
  usage.vpn = probe.vpn;
  usage.interface = probe.interface;
  usage.used = probe.used;
  return usage;
}

/// The rejection of the candidate itself, or of a change to it that adds nothing that the limit counts.
std::optional<Answer> rejection_at_zero(const Validator &validator, const FillStrategy &strategy,
                                        const Blocker &blocker, const Boundary &boundary) {
  if (blocker.rejection) return blocker.rejection;
  const bool is_full = boundary.rejection && boundary.accepted == 0;
  return is_full && strategy.trigger ? validator.rejection(strategy.trigger(), blocker.other_points) : std::nullopt;
}

LimitUsage follow(const Validator &validator, const LimitProbe &probe, const FillStrategy &strategy,
                  const Start &start) {
  Blocker blocker;
  if (!start.is_accepted) blocker = find_blocker(validator, strategy.trial(0), rules::find_rule(probe.rule)->point);
  Boundary boundary;
  if (!blocker.rejection) {
    boundary = find_boundary_of(validator, probe, strategy, blocker.other_points, start.expected);
  }

  LimitUsage usage = usage_of(probe);
  if (const auto rejection = rejection_at_zero(validator, strategy, blocker, boundary)) {
    conclude(usage, probe, *rejection, 0);
  } else if (boundary.rejection) {
    conclude(usage, probe, *boundary.rejection, boundary.accepted + 1);
  } else {
    usage.state = strategy.room < search_ceiling ? LimitState::no_room : LimitState::no_limit;
    usage.left = static_cast<std::int64_t>(boundary.accepted);
  }
  return usage;
}

bool is_at_limit(LimitState state) { return state == LimitState::measured || state == LimitState::exceeded; }

/// The result of the first strategy that reaches the limit, else of the one that adds the most.
LimitUsage best_of(const std::vector<FillStrategy> &strategies, const Validator &validator, const LimitProbe &probe,
                   const Start &start) {
  std::optional<LimitUsage> best;
  for (const FillStrategy &strategy : strategies) {
    LimitUsage found = follow(validator, probe, strategy, start);
    if (is_at_limit(found.state) || !found.left) return found;
    if (!best || best->left < found.left) best = std::move(found);
  }
  return best.value();
}

}  // namespace

LimitUsage find_usage(const Validator &validator, const LimitProbe &probe, bool is_accepted, std::uint64_t expected) {
  const Start start{is_accepted, expected};
  LimitUsage usage = best_of(probe.strategies, validator, probe, start);
  if (usage.state != LimitState::stopped || probe.isolated_strategies.empty()) return usage;

  LimitUsage isolated = best_of(probe.isolated_strategies, validator, probe, start);
  if (isolated.state == LimitState::exceeded) return isolated;
  if (!isolated.allowed) return usage;
  usage.used = isolated.used;
  usage.allowed = isolated.allowed;
  return usage;
}

}  // namespace headroom
