#include "headroom/remainder.h"

#include "headroom/limit_message.h"
#include "headroom/search.h"
#include "rules/rule.h"

namespace headroom {
namespace {

/// How many there are and how many there may be.
struct Numbers {
  std::int64_t configured = 0;
  std::int64_t allowed = 0;
  std::int64_t excess() const { return configured - allowed; }
};

/// What is known of the candidate before the limit is looked at.
struct Start {
  bool is_accepted = true;
  std::uint64_t suspected = 0;
};

/// The numbers that the limit's own message tells of the candidate with so many more; nothing for another message.
std::optional<Numbers> own_numbers(const Fill &fill, const Answer &answer, std::uint64_t more) {
  const bool is_own = answer.rule == fill.rule && answer.message.find(fill.named) != std::string::npos;
  const auto told = is_own ? told_numbers(answer.message) : std::nullopt;
  if (!told) return std::nullopt;

  const auto counted = fill.used ? std::optional(*fill.used + static_cast<std::int64_t>(more)) : std::nullopt;
  // Two VPNs may have too many, and the message names none.
  if (told->configured && counted && told->configured != counted) return std::nullopt;
  if (!told->configured && !counted) return std::nullopt;
  return Numbers{told->configured ? *told->configured : *counted, told->allowed};
}

/// What keeps the candidate itself from being accepted.
struct Hindrance {
  std::optional<Answer> rejection;  ///< by the limit's own point
  Points other_points;              ///< that reject
};

Hindrance hindrance_of(const Judge &judge, const Load &load, std::string_view own_point) {
  Hindrance hindrance;
  for (const host::PointVerdict &point : judge.decide(load, true).points) {
    if (point.answer != host::Answer::rejected) continue;
    if (point.point != own_point) {
      hindrance.other_points.insert(point.point);
    } else if (!hindrance.rejection) {
      hindrance.rejection = answer_of(point);
    }
  }
  return hindrance;
}

void set_numbers(Remainder &remainder, const Numbers &numbers, std::uint64_t more) {
  remainder.used = numbers.configured - static_cast<std::int64_t>(more);
  remainder.allowed = numbers.allowed;
}

/// The remainder where so many more draw the rejection and one less is accepted, or where 0 do.
void conclude(Remainder &remainder, const Fill &fill, const Answer &rejection, std::uint64_t rejected) {
  remainder.stop = rejection;
  remainder.standing = Standing::stopped;
  if (rejected > 0) remainder.left = static_cast<std::int64_t>(rejected) - 1;

  const auto numbers = own_numbers(fill, rejection, rejected);
  if (!numbers) return;
  set_numbers(remainder, *numbers, rejected);
  const bool is_above = rejected == 0 || (rejected == 1 && numbers->excess() > 1);
  remainder.standing = is_above ? Standing::exceeded : Standing::measured;
  if (is_above) remainder.left = static_cast<std::int64_t>(rejected) - numbers->excess();
}

Edge find_edge_of(const Judge &judge, const Fill &fill, const Way &way, const Points &left_out,
                  std::uint64_t suspected) {
  const auto rejection = [&](std::uint64_t more) { return judge.rejection(way.load(more), left_out); };
  const auto excess = [&](const Answer &answer, std::uint64_t more) -> std::optional<std::uint64_t> {
    const auto numbers = own_numbers(fill, answer, more);
    if (!numbers || numbers->excess() < 1) return std::nullopt;
    return static_cast<std::uint64_t>(numbers->excess());
  };
  return find_edge(way.room, suspected, rejection, excess);
}

Remainder start_of(const Fill &fill) {
  Remainder remainder;
  remainder.limit = fill.limit;
  remainder.vpn = fill.vpn;
  remainder.interface = fill.interface;
  remainder.used = fill.used;
  return remainder;
}

/// The rejection of the candidate itself, or of a change to it that adds nothing to what the limit counts.
std::optional<Answer> rejection_at_zero(const Judge &judge, const Way &way, const Hindrance &hindrance,
                                        const Edge &edge) {
  if (hindrance.rejection) return hindrance.rejection;
  const bool is_full = edge.rejection && edge.accepted == 0;
  return is_full && way.touch ? judge.rejection(way.touch(), hindrance.other_points) : std::nullopt;
}

Remainder follow(const Judge &judge, const Fill &fill, const Way &way, const Start &start) {
  Hindrance hindrance;
  if (!start.is_accepted) hindrance = hindrance_of(judge, way.load(0), rules::find_rule(fill.rule)->point);
  Edge edge;
  if (!hindrance.rejection) edge = find_edge_of(judge, fill, way, hindrance.other_points, start.suspected);

  Remainder remainder = start_of(fill);
  if (const auto rejection = rejection_at_zero(judge, way, hindrance, edge)) {
    conclude(remainder, fill, *rejection, 0);
  } else if (edge.rejection) {
    conclude(remainder, fill, *edge.rejection, edge.accepted + 1);
  } else {
    remainder.standing = way.room < search_ceiling ? Standing::no_room : Standing::no_limit;
    remainder.left = static_cast<std::int64_t>(edge.accepted);
  }
  return remainder;
}

bool is_at_limit(Standing standing) { return standing == Standing::measured || standing == Standing::exceeded; }

Remainder best_of_ways(const Judge &judge, const Fill &fill, const std::vector<Way> &ways, const Start &start) {
  std::optional<Remainder> best;
  for (const Way &way : ways) {
    Remainder found = follow(judge, fill, way, start);
    if (is_at_limit(found.standing) || !found.left) return found;
    if (!best || best->left < found.left) best = std::move(found);
  }
  return best.value();
}

}  // namespace

Remainder find_remainder(const Judge &judge, const Fill &fill, bool is_accepted, std::uint64_t suspected) {
  const Start start{is_accepted, suspected};
  Remainder remainder = best_of_ways(judge, fill, fill.ways, start);
  if (remainder.standing != Standing::stopped || fill.unhindered.empty()) return remainder;

  Remainder unhindered = best_of_ways(judge, fill, fill.unhindered, start);
  if (unhindered.standing == Standing::exceeded) return unhindered;
  if (!unhindered.allowed) return remainder;
  remainder.used = unhindered.used;
  remainder.allowed = unhindered.allowed;
  return remainder;
}

}  // namespace headroom
