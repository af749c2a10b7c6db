#include "element/profile/profile.h"

#include <fmt/format.h>

#include <utility>

#include "element/input/input_error.h"

namespace element {
namespace {

template <typename Map, typename Key>
void index_field(Map &index, const Key &key, std::size_t place, std::string_view field) {
  const auto [known, is_new] = index.emplace(key, place);
  if (is_new) return;
  throw InputError(fmt::format("interfaces/{}/{}: {} is that of interfaces/{} already; expected one of its own", place,
                               field, key, known->second));
}

template <typename Map, typename Key>
const Interface *look_up(const std::vector<Interface> &interfaces, const Map &index, const Key &key) {
  const auto found = index.find(key);
  return found == index.end() ? nullptr : &interfaces[found->second];
}

}  // namespace

Profile::Profile(const CardLimits &card_limits, std::vector<Interface> interfaces)
    : card(card_limits), interfaces_(std::move(interfaces)) {
  for (std::size_t i = 0; i < interfaces_.size(); ++i) {
    index_field(names_, interfaces_[i].name, i, "name");
    index_field(logical_ids_, interfaces_[i].logical_id, i, "logical-id");
    index_field(ifindexes_, interfaces_[i].ifindex, i, "ifindex");
  }
}

const Interface *Profile::by_name(const std::string &name) const { return look_up(interfaces_, names_, name); }

const Interface *Profile::by_logical_id(std::uint32_t id) const { return look_up(interfaces_, logical_ids_, id); }

const Interface *Profile::by_ifindex(std::int32_t ifindex) const { return look_up(interfaces_, ifindexes_, ifindex); }

}  // namespace element
