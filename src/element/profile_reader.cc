#include <fmt/format.h>

#include <algorithm>
#include <limits>
#include <nlohmann/json.hpp>
#include <set>
#include <utility>

#include "element/input_error.h"
#include "element/input_text.h"
#include "element/profile.h"

namespace element {
namespace {

using Json = nlohmann::json;

constexpr std::size_t kLongestName = 63;
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

std::optional<std::uint32_t> limit(const Json &card, const char *name) {
  if (!card.contains(name)) return std::nullopt;
  return number<std::uint32_t>(card, "card", name, 0);
}

CardLimits read_card(const Json &card) {
  require_object(
      card, "card",
      {"vpn-max", "access-ports", "selective-encapsulation-vlan-entries", "selective-encapsulation-vlan-ranges"});
  return {limit(card, "vpn-max"), limit(card, "access-ports"), limit(card, "selective-encapsulation-vlan-entries"),
          limit(card, "selective-encapsulation-vlan-ranges")};
}

std::string interface_name(const Json &interface, const std::string &path) {
  const Json &value = required(interface, path, "name", kNameExpected);
  const std::string *name = value.get_ptr<const std::string *>();
  if (name == nullptr || name->empty() || name->size() > kLongestName) {
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

// The library keeps the last of several members of one name and says nothing.
class DistinctMembers {
 public:
  explicit DistinctMembers(std::string origin) : origin_(std::move(origin)) {}

  bool operator()(int, Json::parse_event_t event, const Json &parsed) {
    if (event == Json::parse_event_t::object_start) {
      names_.emplace_back();
    } else if (event == Json::parse_event_t::object_end) {
      names_.pop_back();
    } else if (event == Json::parse_event_t::key && !names_.back().insert(parsed.get<std::string>()).second) {
      throw_field_error(fmt::format("{}: {}", origin_, one_line(parsed.get<std::string>())),
                        "field given twice in one object", "each field once");
    }
    return true;
  }

 private:
  std::string origin_;
  std::vector<std::set<std::string>> names_;
};

// "[json.exception...] parse error at line 1, column 2: what is wrong" is cut down to what is wrong. The library often
// says what it expected.
std::string reason(const Json::exception &error, const char *expected) {
  const std::string_view text = error.what();
  const std::size_t place = text.find("column ");
  const std::size_t begin = place == std::string_view::npos ? text.find("] ") : text.find(": ", place);
  const std::string fault = one_line(text.substr(begin + 2));
  return fault.find("; expected ") == std::string::npos ? fmt::format("{}; expected {}", fault, expected) : fault;
}

Json parse_json(std::string_view text, const std::string &origin) {
  try {
    return Json::parse(text, DistinctMembers(origin));
  } catch (const Json::parse_error &error) {
    // The byte is the number of bytes read, the wrong one included.
    const Position position = position_at(text, error.byte == 0 ? 0 : error.byte - 1);
    throw InputError(
        fmt::format("{}:{}:{}: {}", origin, position.line, position.column, reason(error, "well-formed JSON")));
  } catch (const Json::out_of_range &error) {
    throw InputError(fmt::format("{}: {}", origin, reason(error, "a number that fits its field")));
  }
}

Profile profile_from(const Json &profile) {
  require_object(profile, "", {"card", "interfaces"});
  const auto card = profile.find("card");
  const CardLimits limits = card == profile.end() ? CardLimits{} : read_card(*card);
  return {limits, read_interfaces(required(profile, "", "interfaces", kInterfacesExpected))};
}

}  // namespace

Profile parse_profile(std::string_view text, const std::string &origin) {
  const Json json = parse_json(text, origin);
  try {
    return profile_from(json);
  } catch (const InputError &error) {
    throw InputError(fmt::format("{}: {}", origin, error.what()));
  }
}

Profile read_profile(const std::filesystem::path &file) { return parse_profile(read_input(file), file.string()); }

}  // namespace element
