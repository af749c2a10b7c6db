#include "maintenance/cost/latencies.h"

#include <fmt/format.h>

#include <charconv>
#include <nlohmann/json.hpp>
#include <optional>
#include <stdexcept>
#include <string_view>

#include "element/input/input_error.h"
#include "element/input/input_text.h"
#include "maintenance/recording/decode.h"

namespace cost {
namespace {

using nlohmann::ordered_json;

/// More than an hour is a mistake.
constexpr double kLongestMicroseconds = 3.6e9;

bool is_latency(double microseconds) { return microseconds >= 0 && microseconds <= kLongestMicroseconds; }

std::chrono::nanoseconds from_microseconds(double microseconds) {
  return std::chrono::nanoseconds(static_cast<std::int64_t>(microseconds * 1000));
}

std::optional<std::size_t> number_of(std::string_view function) {
  for (std::size_t i = 0; i < host::seam_function_count; ++i) {
    if (host::name(static_cast<host::SeamFunction>(i)) == function) return i;
  }
  return std::nullopt;
}

[[noreturn]] void fail(const std::filesystem::path &file, const std::string &what) {
  throw element::InputError(
      fmt::format("{}: {}; expected a recording, or an object with microseconds by platform function, "
                  "{{\"default\": 50, \"maapi_get_objects\": 400}}",
                  file.string(), what));
}

double microseconds_in(const ordered_json &value, const std::filesystem::path &file, const std::string &name) {
  if (!value.is_number() || !is_latency(value.get<double>())) fail(file, fmt::format("\"{}\" is no latency", name));
  return value.get<double>();
}

struct Durations {
  std::uint64_t calls = 0;
  std::uint64_t nanoseconds = 0;

  void add(std::uint64_t duration) {
    ++calls;
    nanoseconds += duration;
  }
  std::chrono::nanoseconds mean() const { return std::chrono::nanoseconds(calls == 0 ? 0 : nanoseconds / calls); }
};

Latencies recorded_latencies(const std::string &content, const std::filesystem::path &file) {
  std::array<Durations, host::seam_function_count> by_function;
  Durations all;
  try {
    for (const recording::Call &call : recording::decode(content).calls) {
      const auto function = number_of(recording::name(call.function));
      if (!function) continue;
      by_function[*function].add(call.duration);
      all.add(call.duration);
    }
  } catch (const recording::DecodeError &error) {
    fail(file, error.what());
  }
  Latencies latencies;
  for (std::size_t i = 0; i < latencies.size(); ++i) {
    latencies[i] = by_function[i].calls == 0 ? all.mean() : by_function[i].mean();
  }
  return latencies;
}

Latencies listed_latencies(std::string_view text, const std::filesystem::path &file) {
  const ordered_json json = ordered_json::parse(text, nullptr, false);
  if (!json.is_object()) fail(file, "no JSON object");
  Latencies latencies;
  latencies.fill(
      from_microseconds(json.contains("default") ? microseconds_in(json.at("default"), file, "default") : 0));
  for (const auto &[name, value] : json.items()) {
    if (name == "default") continue;
    const auto function = number_of(name);
    if (!function) fail(file, fmt::format("\"{}\" is no platform function", name));
    latencies[*function] = from_microseconds(microseconds_in(value, file, name));
  }
  return latencies;
}

}  // namespace

Latencies latencies_from_number(std::string_view text) {
  double microseconds = 0;
  const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), microseconds);
  if (error != std::errc() || stop != text.data() + text.size() || !is_latency(microseconds)) {
    throw std::invalid_argument(fmt::format("{}: expected microseconds, 0 to 3600000000", text));
  }
  Latencies latencies;
  latencies.fill(from_microseconds(microseconds));
  return latencies;
}

Latencies read_latencies(const std::filesystem::path &file) {
  const std::string content = element::read_input(file);
  return content.starts_with('{') ? listed_latencies(content, file) : recorded_latencies(content, file);
}

}  // namespace cost
