#ifndef DIAGNOSIS_LIMIT_H
#define DIAGNOSIS_LIMIT_H

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "diagnosis/search_context.h"
#include "diagnosis/subset_sum.h"
#include "rules/limit_message.h"

namespace diagnosis {

/// What a limit counts and how much it allows, by its message: a guess that saves questions.
class Limit {
 public:
  /// The message is of a rule that counts. The context must outlive the limit.
  Limit(const SearchContext &context, std::uint32_t message);

  /// The text names the limit.
  bool is_known() const { return numbers_.has_value(); }

  /// 0 where it is not known.
  std::size_t allowed() const;

  /// How much of the limit the entry takes; 0 for what it does not count.
  std::size_t weight(std::uint32_t entry) const;

  /// What is counted together in the set, where it is more than the limit allows: all of a kind, or the attachments of
  /// one VPN.
  std::vector<std::vector<Share>> exceeding_groups(const NumberSet &set) const;

 private:
  const SearchContext &context_;
  std::string_view rule_;
  std::string text_;
  std::optional<rules::LimitNumbers> numbers_;
};

bool is_touched(const SearchContext &context, std::uint32_t entry);

/// Something that the commit changes stands in the entry, or the entry is changed itself: the library looks at it.
bool holds_touched(const SearchContext &context, std::uint32_t entry);

std::size_t sum_of(const std::vector<Share> &shares);
NumberSet entries_of(const std::vector<Share> &shares);

}  // namespace diagnosis

#endif
