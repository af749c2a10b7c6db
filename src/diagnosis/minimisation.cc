#include "diagnosis/minimisation.h"

#include <algorithm>

#include "diagnosis/name_hints.h"

namespace diagnosis {
namespace {

// Fewer innermost entries are tried one by one.
constexpr std::size_t kFew = 8;

class Minimiser {
 public:
  Minimiser(const SearchContext &context, std::uint32_t message) : context_(context), message_(message) {}

  NumberSet run(const NumberSet &entries) {
    NumberSet start = guessed(entries);
    if (context_.entries.innermost(start).size() > kFew) start = quick_xplain(start);
    return without_superfluous(std::move(start));
  }

 private:
  bool draws(const NumberSet &closed) const { return context_.oracle.reproduces(closed, message_); }

  NumberSet guessed(const NumberSet &entries) const {
    for (const NumberSet &guess : guess_parties(context_.entries, entries, context_.messages[message_])) {
      const NumberSet closed = context_.entries.closure(guess);
      if (closed.size() < entries.size() && draws(closed)) return closed;
    }
    return entries;
  }

  NumberSet quick_xplain(const NumberSet &entries) {
    const NumberSet needed = needed_of({}, false, entries);
    const NumberSet closed = context_.entries.closure(needed);
    return context_.oracle.has_ended() || !draws(closed) ? entries : closed;
  }

  /// Of the candidates those that are needed beside the background.
  NumberSet needed_of(const NumberSet &background, bool has_grown, const NumberSet &candidates) {
    if (context_.oracle.has_ended()) return candidates;
    if (has_grown && draws(context_.entries.closure(background))) return {};
    if (candidates.size() == 1) return candidates;
    const auto middle = candidates.begin() + static_cast<std::ptrdiff_t>(candidates.size() / 2);
    const NumberSet first(candidates.begin(), middle);
    const NumberSet second(middle, candidates.end());
    const NumberSet of_second = needed_of(united(background, first), true, second);
    const NumberSet of_first = needed_of(united(background, of_second), !of_second.empty(), first);
    return united(of_first, of_second);
  }

  NumberSet without_superfluous(NumberSet set) {
    for (bool is_stable = false; !is_stable;) {
      is_stable = true;
      for (const std::uint32_t entry : context_.entries.innermost(set)) {
        NumberSet rest = minus(set, {entry});
        if (rest.empty() || !draws(rest)) continue;
        set = std::move(rest);
        is_stable = false;
        break;
      }
    }
    return set;
  }

  const SearchContext &context_;
  std::uint32_t message_;
};

}  // namespace

FoundConflict minimise(const SearchContext &context, const NumberSet &entries, std::uint32_t message) {
  FoundConflict conflict;
  conflict.entries = Minimiser(context, message).run(entries);
  conflict.message = message;
  conflict.parties = context.entries.innermost(conflict.entries);
  conflict.is_minimal = !context.oracle.has_ended();
  return conflict;
}

}  // namespace diagnosis
