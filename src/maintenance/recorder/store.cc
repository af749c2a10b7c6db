#include "maintenance/recorder/store.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace recorder {

namespace {

constexpr std::string_view kEnding = ".vpnrec";
constexpr std::size_t kDigits = 10;

bool ends_with(std::string_view text, std::string_view end) {
  return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool is_recording(std::string_view name) {
  const bool is_numbered =
      name.size() > kDigits && name[kDigits] == '-' && name.find_first_not_of("0123456789") == kDigits;
  return is_numbered && ends_with(name, kEnding);
}

bool is_of_accepted(std::string_view name) { return ends_with(name, "-accepted.vpnrec"); }

/// A validation point's name as a part of a file's name.
std::string as_file_name(std::string_view point) {
  std::string name(point.substr(0, 40));
  for (char &c : name) {
    const bool is_plain = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
    if (!is_plain) c = '_';
  }
  return name;
}

std::string last_error(const std::string &what) { return what + ": " + std::strerror(errno); }

}  // namespace

Store::Store(std::string folder) : folder_(std::move(folder)) {
  struct stat status {};
  exists_ = ::stat(folder_.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
  if (exists_) find_kept();
}

// The numbers go on where an earlier process ended, also on an element whose clock begins anew.
void Store::find_kept() {
  const std::unique_ptr<DIR, int (*)(DIR *)> folder(::opendir(folder_.c_str()), ::closedir);
  if (folder == nullptr) return;
  while (const dirent *entry = ::readdir(folder.get())) {
    struct stat status {};
    if (!is_recording(entry->d_name)) continue;
    if (::stat((folder_ + "/" + entry->d_name).c_str(), &status) != 0) continue;
    kept_.push_back({entry->d_name, static_cast<std::uint64_t>(status.st_size)});
    bytes_ += kept_.back().size;
  }
  std::sort(kept_.begin(), kept_.end(), [](const Kept &a, const Kept &b) { return a.name < b.name; });
  if (!kept_.empty()) next_ = std::strtoull(kept_.back().name.c_str(), nullptr, 10) + 1;
}

std::string Store::keep(std::string_view bytes, std::string_view point, std::string_view verdict) {
  if (bytes.size() > kMostBytes) return "it is larger than all that may be kept";
  make_room(bytes.size());
  char number[32];
  std::snprintf(number, sizeof number, "%0*llu-%d-", static_cast<int>(kDigits), static_cast<unsigned long long>(next_),
                static_cast<int>(::getpid()));
  const std::string name = number + as_file_name(point) + "-" + std::string(verdict) + std::string(kEnding);
  std::string problem = write(folder_ + "/" + name, bytes);
  if (!problem.empty()) return problem;
  ++next_;
  kept_.push_back({name, bytes.size()});
  bytes_ += bytes.size();
  return "";
}

std::string Store::write(const std::string &file, std::string_view bytes) const {
  const std::string unfinished = folder_ + "/." + std::to_string(::getpid()) + ".unfinished";
  const int descriptor = ::open(unfinished.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NOFOLLOW, 0600);
  if (descriptor < 0) return last_error(unfinished);
  std::string problem;
  while (!bytes.empty() && problem.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written > 0) {
      bytes.remove_prefix(static_cast<std::size_t>(written));
    } else if (written == 0 || errno != EINTR) {
      problem = last_error(unfinished);
    }
  }
  if (::close(descriptor) != 0 && problem.empty()) problem = last_error(unfinished);
  if (problem.empty() && ::rename(unfinished.c_str(), file.c_str()) != 0) problem = last_error(file);
  if (!problem.empty()) ::unlink(unfinished.c_str());
  return problem;
}

void Store::remove(std::size_t index) {
  ::unlink((folder_ + "/" + kept_[index].name).c_str());
  bytes_ -= kept_[index].size;
  kept_.erase(kept_.begin() + static_cast<std::ptrdiff_t>(index));
}

void Store::make_room(std::uint64_t size) {
  const auto is_accepted = [](const Kept &kept) { return is_of_accepted(kept.name); };
  while (!kept_.empty() && (kept_.size() >= kMostRecordings || bytes_ + size > kMostBytes)) {
    const auto accepted = std::count_if(kept_.begin(), kept_.end(), is_accepted);
    const bool is_one_of_accepted = static_cast<std::size_t>(accepted) > kMostRecordings / 4;
    const auto oldest = is_one_of_accepted ? std::find_if(kept_.begin(), kept_.end(), is_accepted) : kept_.begin();
    remove(static_cast<std::size_t>(oldest - kept_.begin()));
  }
}

void Store::write_status(const std::string &text) const {
  if (exists_) write(folder_ + "/status", text + "\n");
}

}  // namespace recorder
