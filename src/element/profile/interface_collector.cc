#include "element/profile/interface_collector.h"

#include <fmt/format.h>

#include <charconv>
#include <utility>

#include "element/input/input_fault.h"
#include "element/input/input_text.h"

namespace element {
namespace {

constexpr std::string_view kInterfaces = "interfaces";
constexpr std::string_view kInterfacesState = "interfaces-state";

std::optional<std::int32_t> positive_number(std::string_view text) {
  std::int32_t number = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  const bool is_number = error == std::errc{} && end == text.data() + text.size() && number > 0;
  return is_number ? std::optional(number) : std::nullopt;
}

}  // namespace

bool is_interface_container(std::string_view name) { return name == kInterfaces || name == kInterfacesState; }

InterfaceCollector::InterfaceCollector(std::string file) : file_(std::move(file)) {}

void InterfaceCollector::begin(std::string_view container, std::size_t line) {
  container_ = container;
  open_ = {};
  open_.line = line;
}

void InterfaceCollector::leaf(std::string_view name, std::string_view text, std::size_t line) {
  if (name == "name") {
    open_.name = text;
  } else if (name == "type") {
    const std::string_view identity = trimmed(text);
    open_.type = identity.substr(identity.rfind(':') + 1);
  } else if (name == "if-index") {
    open_.if_index = positive_number(trimmed(text));
    if (!open_.if_index) {
      throw input_fault({file_, line}, fmt::format("if-index \"{}\" of interface {}", one_line(text), open_.name),
                        "a number of 1..2147483647");
    }
  }
}

void InterfaceCollector::end() {
  if (open_.name.empty()) throw input_fault({file_, open_.line}, "interface without a name", "its name");
  const auto [first, is_new] = container_lines_.emplace(container_ + "/" + open_.name, open_.line);
  if (!is_new) {
    throw input_fault({file_, open_.line},
                      fmt::format("interface {} is given twice, first on line {}", one_line(open_.name), first->second),
                      "it once");
  }
  const auto [place, is_unknown] = places_.emplace(open_.name, interfaces_.size());
  if (is_unknown) {
    interfaces_.push_back(std::move(open_));
    return;
  }
  InterfaceData &known = interfaces_[place->second];
  if (known.type.empty()) known.type = std::move(open_.type);
  if (!known.if_index) known.if_index = open_.if_index;
}

std::vector<InterfaceData> InterfaceCollector::take_result() { return std::move(interfaces_); }

}  // namespace element
