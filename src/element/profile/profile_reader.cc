#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <utility>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "element/input/json_text.h"
#include "element/profile/profile.h"

namespace element {
namespace {

using Json = nlohmann::json;

constexpr const char *kNameExpected = "text of 1..63 bytes";
constexpr const char *kInterfacesExpected = "an array of interfaces";

std::string below(const std::string &path, std::string_view field) {
  return path.empty() ? std::string(field) : fmt::format("{}/{}", path, field);
}

[[noreturn]] void throw_field_error(const std::string &path, const std::string &fault, const std::string &expected) {
  const std::string prefix = path.empty() ? "" : path + ": ";
  throw InputError(fmt::format("{}{}; expected {}", prefix, fault, expected));
}

std::string found(const Json &value) { return one_line(value.dump()) + " found"; }

void require_object(const Json &value, const std::string &path, const std::vector<std::string_view> &known_fields) {
  const std::string fields = fmt::format("an object with the fields {}", fmt::join(known_fields, ", "));
  if (!value.is_object()) throw_field_error(path, found(value), fields);
  for (const auto &[name, field] : value.items()) {
    if (std::find(known_fields.begin(), known_fields.end(), name) == known_fields.end()) {
      throw_field_error(below(path, one_line(name)), "unknown field",
                        fmt::format("one of {}", fmt::join(known_fields, ", ")));
    }
  }
}

const Json &required(const Json &object, const std::string &path, const char *name, const std::string &expected) {
  const auto field = object.find(name);
  if (field == object.end()) throw_field_error(below(path, name), "missing field", expected);
  return *field;
}

template <typename T>
T number(const Json &object, const std::string &path, const char *name, T least) {
  constexpr T most = std::numeric_limits<T>::max();
  const std::string expected = fmt::format("a number of {}..{}", least, most);
  const Json &value = required(object, path, name, expected);
  const bool fits =
      value.is_number_unsigned() && std::in_range<T>(value.get<std::uint64_t>()) && value.get<T>() >= least;
  if (!fits) throw_field_error(below(path, name), found(value), expected);
  return value.get<T>();
}

CardLimits read_card(const Json &card, const std::string &path) {
  std::vector<std::string_view> fields;
  for (const LimitField &field : kLimitFields) fields.emplace_back(field.name);
  require_object(card, path, fields);
  CardLimits limits;
  for (const LimitField &field : kLimitFields) {
    if (card.contains(field.name)) limits.*field.value = number<std::uint32_t>(card, path, field.name, 0);
  }
  return limits;
}

std::string interface_name(const Json &interface, const std::string &path) {
  const Json &value = required(interface, path, "name", kNameExpected);
  const std::string *name = value.get_ptr<const std::string *>();
  if (name == nullptr || name->empty() || name->size() > kLongestInterfaceName) {
    throw_field_error(below(path, "name"), found(value), kNameExpected);
  }
  return *name;
}

Interface read_interface(const Json &value, const std::string &path) {
  require_object(value, path, {"name", "logical-id", "ifindex"});
  return {interface_name(value, path), number<std::uint32_t>(value, path, "logical-id", 0),
          number<std::int32_t>(value, path, "ifindex", 1)};
}

std::vector<Interface> read_interfaces(const Json &value) {
  if (!value.is_array()) throw_field_error("interfaces", found(value), kInterfacesExpected);
  std::vector<Interface> interfaces;
  interfaces.reserve(value.size());
  for (std::size_t i = 0; i < value.size(); ++i) {
    interfaces.push_back(read_interface(value[i], fmt::format("interfaces/{}", i)));
  }
  return interfaces;
}

Profile profile_from(const Json &profile) {
  require_object(profile, "", {"card", "interfaces"});
  const auto card = profile.find("card");
  const CardLimits limits = card == profile.end() ? CardLimits{} : read_card(*card, "card");
  return {limits, read_interfaces(required(profile, "", "interfaces", kInterfacesExpected))};
}

std::map<std::string, CardLimits> cards_from(const Json &table) {
  if (!table.is_object()) throw_field_error("", found(table), "an object with a member for each card");
  std::map<std::string, CardLimits> cards;
  for (const auto &[name, card] : table.items()) cards.emplace(name, read_card(card, one_line(name)));
  return cards;
}

/// What `read` makes of the JSON text. Errors name `origin` as the file.
template <typename Read>
auto parse(std::string_view text, const std::string &origin, Read read) {
  require_json(text, origin);
  const Json json = Json::parse(text);
  try {
    return read(json);
  } catch (const InputError &error) {
    throw InputError(fmt::format("{}: {}", origin, error.what()));
  }
}

}  // namespace

Profile parse_profile(std::string_view text, const std::string &origin) { return parse(text, origin, profile_from); }

std::map<std::string, CardLimits> read_cards(const std::filesystem::path &file) {
  return parse(read_input(file), file.string(), cards_from);
}

Profile read_profile(const std::filesystem::path &file) { return parse_profile(read_input(file), file.string()); }

}  // namespace element
