#include "agent/core/settings.h"

#include <array>
#include <fstream>
#include <iterator>
#include <nlohmann/json.hpp>
#include <stdexcept>
#include <utility>

namespace agent {
namespace {

constexpr std::array<std::pair<WarningStyle, const char *>, 3> kStyles{
    {{WarningStyle::error, "error"}, {WarningStyle::notify, "notify"}, {WarningStyle::both, "both"}}};

const char *name_of(WarningStyle style) { return kStyles.at(static_cast<std::size_t>(style)).second; }

WarningStyle style_of(const std::string &name) {
  for (const auto &[style, known] : kStyles) {
    if (name == known) return style;
  }
  throw std::runtime_error("warnings " + name);
}

}  // namespace

std::string write_settings(const Settings &settings) {
  const nlohmann::json json{{"program", settings.program.string()},    {"profile", settings.profile.string()},
                            {"plugin", settings.plugin.string()},      {"work", settings.work.string()},
                            {"running", settings.running.string()},    {"warnings", name_of(settings.warnings)},
                            {"startup", settings.startup.string()},    {"kept-startup", settings.kept_startup.string()},
                            {"asks-at-edits", settings.asks_at_edits}, {"budget", settings.budget},
                            {"limit", settings.limit.count()}};
  return json.dump(2);
}

Settings read_settings(const std::filesystem::path &file) {
  std::ifstream stream(file);
  try {
    const std::string text(std::istreambuf_iterator<char>(stream), {});
    const nlohmann::json json = nlohmann::json::parse(text);
    Settings settings;
    settings.program = json.at("program").get<std::string>();
    settings.profile = json.at("profile").get<std::string>();
    settings.plugin = json.at("plugin").get<std::string>();
    settings.work = json.at("work").get<std::string>();
    settings.running = json.at("running").get<std::string>();
    settings.startup = json.at("startup").get<std::string>();
    settings.kept_startup = json.at("kept-startup").get<std::string>();
    settings.warnings = style_of(json.at("warnings").get<std::string>());
    settings.asks_at_edits = json.at("asks-at-edits").get<bool>();
    settings.budget = json.at("budget").get<std::string>();
    settings.limit = std::chrono::milliseconds(json.at("limit").get<long>());
    return settings;
  } catch (const std::exception &error) {
    throw std::runtime_error(file.string() + ": not the settings of an agent: " + error.what());
  }
}

}  // namespace agent
