#include "host/run/plugin.h"

#include <dlfcn.h>
#include <fmt/format.h>

#include <array>
#include <string_view>

#include "host/run/build_id.h"

namespace host {

namespace {

constexpr std::string_view kValidationPoint = "vpn_app_validation";

[[noreturn]] void fail_to_load(const std::filesystem::path &file, const std::string &reason) {
  throw LoadError(fmt::format("{}: {}", file.string(), reason));
}

/// What the loader's message says, without the file that it names in its own way.
std::string loader_reason(const std::filesystem::path &file) {
  const char *message = ::dlerror();
  std::string reason = message == nullptr ? "unknown reason" : message;
  const std::string prefix = file.string() + ": ";
  if (reason.compare(0, prefix.size(), prefix) == 0) reason.erase(0, prefix.size());
  return reason;
}

// Never unloaded: the library's static objects are destroyed when the process ends, and a leak report then still finds
// the names of its functions.
void *load(const std::filesystem::path &file) {
  if (!std::filesystem::is_regular_file(file)) fail_to_load(file, "there is no such file");
  const std::filesystem::path absolute = std::filesystem::absolute(file);
  void *library = ::dlopen(absolute.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library != nullptr) return library;

  const std::string reason = loader_reason(absolute);
  constexpr std::string_view unresolved = "undefined symbol: ";
  if (reason.compare(0, unresolved.size(), unresolved) == 0) {
    fail_to_load(file, fmt::format("unresolved symbol {}", reason.substr(unresolved.size())));
  }
  fail_to_load(file, fmt::format("not a library that can be loaded: {}", reason));
}

template <typename Function>
Function entry_point(void *library, const std::filesystem::path &file, const char *name) {
  void *symbol = ::dlsym(library, name);
  if (symbol == nullptr) fail_to_load(file, fmt::format("missing entry point {}", name));
  return reinterpret_cast<Function>(symbol);
}

}  // namespace

Plugin::Plugin(const std::filesystem::path &file) : file_(file), build_id_(host::build_id(file)), library_(load(file)) {
  const auto init = entry_point<std::int32_t (*)(void **)>(library_, file, "lib_init");
  const auto get_validation_point =
      entry_point<std::int32_t (*)(char *, std::int32_t)>(library_, file, "get_validation_point");
  validate_ = entry_point<decltype(validate_)>(library_, file, "validate");
  finish_ = entry_point<decltype(finish_)>(library_, file, "lib_finish");

  if (const std::int32_t result = init(&state_); result != 0)
    fail_to_load(file, fmt::format("lib_init answered {}", result));
  std::array<char, 64> name{};
  get_validation_point(name.data(), static_cast<std::int32_t>(name.size()));
  name.back() = '\0';
  if (kValidationPoint != name.data()) {
    finish_(&state_);
    fail_to_load(file,
                 fmt::format("get_validation_point named \"{}\"; \"{}\" was expected", name.data(), kValidationPoint));
  }
}

// That a library is not content with its state word is of no use to anybody any more.
Plugin::~Plugin() { finish_(&state_); }

std::int32_t Plugin::validate(confd_trans_ctx *context, confd_hkeypath *path, confd_value *value) const {
  return validate_(context, path, value);
}

}  // namespace host
