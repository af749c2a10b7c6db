#ifndef AGENT_CORE_SETTINGS_H
#define AGENT_CORE_SETTINGS_H

#include <chrono>
#include <filesystem>
#include <string>

namespace agent {

/// Names the file of the settings to the agent's process.
inline constexpr const char *kSettingsVariable = "VPNVAL_AGENT_SETTINGS";

/// What is told of a commit that is accepted with warnings.
enum class WarningStyle { error, notify, both };

/// What vpnval serve tells the module in the agent.
struct Settings {
  std::filesystem::path program;       ///< vpnval
  std::filesystem::path profile;       ///< the element's
  std::filesystem::path plugin;        ///< the validation library
  std::filesystem::path work;          ///< a folder for files that are gone after each question
  std::filesystem::path running;       ///< where the running configuration is kept
  std::filesystem::path startup;       ///< where the agent has its startup configuration; empty: there is none
  std::filesystem::path kept_startup;  ///< where that is kept
  WarningStyle warnings = WarningStyle::error;
  bool asks_at_edits = false;               ///< as well as at validate and commit
  std::string budget;                       ///< of the search, as vpnval check takes it
  std::chrono::milliseconds limit{60'000};  ///< for one answer
};

/// Written by one process and read by another one. Reading throws std::runtime_error for a file that cannot be read or
/// is not what was written.
std::string write_settings(const Settings &settings);
Settings read_settings(const std::filesystem::path &file);

}  // namespace agent

#endif
