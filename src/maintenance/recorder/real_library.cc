#include "maintenance/recorder/real_library.h"

#include <dlfcn.h>

#include <cstdio>
#include <string_view>

#include "maintenance/hooks/library_slots.h"
#include "maintenance/recorder/recorded_call.h"
#include "maintenance/recorder/replacements.h"
#include "maintenance/recorder/store.h"

namespace recorder {

namespace {

constexpr const char *kRealName = "libconfig_validate_vpn.real.so";
constexpr const char *kFolderName = "libconfig_validate_vpn.recordings";

std::string own_folder() {
  Dl_info info{};
  if (::dladdr(reinterpret_cast<const void *>(&own_folder), &info) == 0 || info.dli_fname == nullptr) return ".";
  const std::string_view file = info.dli_fname;
  const std::size_t slash = file.rfind('/');
  return slash == std::string_view::npos ? "." : std::string(file.substr(0, slash));
}

// As the tape, never destroyed.
Store &store() {
  static Store &store = *new Store(own_folder() + "/" + kFolderName);
  return store;
}

void say(const std::string &text) {
  std::fprintf(stderr, "libconfig_validate_vpn_recorder: %s\n", text.c_str());
  store().write_status(text);
}

template <typename Function>
bool look_up(void *library, const char *name, Function *&function) {
  function = reinterpret_cast<Function *>(::dlsym(library, name));
  if (function == nullptr) say(std::string(kRealName) + ": missing entry point " + name);
  return function != nullptr;
}

bool look_up_all(void *library, RealLibrary &real) {
  return look_up(library, "lib_init", real.lib_init) &&
         look_up(library, "get_validation_point", real.get_validation_point) &&
         look_up(library, "validate", real.validate) && look_up(library, "lib_finish", real.lib_finish);
}

// Where there is no folder for recordings, the library is not hooked at all.
bool record(void *library) {
  if (!store().exists()) {
    say("nothing is recorded: there is no folder " + store().folder());
    return false;
  }
  hooked = hooks::hook(library, all_replacements());
  if (!hooked.problem.empty()) {
    say(std::string(kRealName) + " is used without recording: " + hooked.problem);
    return false;
  }
  return true;
}

// Never unloaded, as little as what it is loaded by: its static state may be in use until the process ends.
RealLibrary load() {
  RealLibrary real;
  const std::string file = own_folder() + "/" + kRealName;
  void *library = ::dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) {
    say(::dlerror());
    return real;
  }
  real.is_loaded = look_up_all(library, real);
  if (!real.is_loaded) return real;
  real.build_id = hooks::build_id(library);
  real.is_recorded = record(library);
  if (real.is_recorded) store().write_status("recording " + file + ", build id " + real.build_id);
  return real;
}

std::string_view verdict_name(const std::int32_t *verdict) {
  if (verdict == nullptr) return "exception";
  switch (*verdict) {
    case CONFD_OK:
      return "accepted";
    case CONFD_VALIDATION_WARN:
      return "warned";
    case CONFD_ERR:
      return "rejected";
    default:
      return "unknown";
  }
}

}  // namespace

const RealLibrary &RealLibrary::get() {
  static const RealLibrary &real = *new RealLibrary(load());
  return real;
}

// Of problems in a row the first is told, not each of a thousand.
void keep_recording(const char *point, const std::int32_t *verdict) {
  static bool is_told = false;
  std::string problem;
  if (!tape().is_whole()) {
    problem = tape().problem();
  } else {
    problem = store().keep(tape().writer().bytes(), point == nullptr ? "" : point, verdict_name(verdict));
  }
  if (!problem.empty() && !is_told) say("a call of validate was not recorded: " + problem);
  is_told = !problem.empty();
}

}  // namespace recorder
