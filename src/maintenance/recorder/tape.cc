#include "maintenance/recorder/tape.h"

#include <ctime>

#include "maintenance/hooks/agent_values.h"

namespace recorder {

namespace {

using recording::HandleKind;

std::uint64_t nanoseconds_since_1970() {
  std::timespec now{};
  ::clock_gettime(CLOCK_REALTIME, &now);
  return static_cast<std::uint64_t>(now.tv_sec) * 1'000'000'000U + static_cast<std::uint64_t>(now.tv_nsec);
}

std::uint64_t nanoseconds_since(std::chrono::steady_clock::time_point then) {
  const auto passed = std::chrono::steady_clock::now() - then;
  return static_cast<std::uint64_t>(std::chrono::duration_cast<std::chrono::nanoseconds>(passed).count());
}

}  // namespace

void Tape::start(const Origin &origin, const confd_trans_ctx &context, const confd_hkeypath_t *path,
                 const confd_value_t *value) {
  problem_ = nullptr;
  message_.reset();
  handles_.clear();
  handles_.open(HandleKind::context, &context);
  if (context.vcb_opaque != nullptr) handles_.open(HandleKind::middleware, context.vcb_opaque);
  writer_.start();
  write_header(origin, context, path, value);
  is_running_ = true;
  began_ = std::chrono::steady_clock::now();
}

void Tape::write_header(const Origin &origin, const confd_trans_ctx &context, const confd_hkeypath_t *path,
                        const confd_value_t *value) {
  bool is_known = true;
  writer_.text(origin.library);
  writer_.text(origin.version);
  writer_.number(nanoseconds_since_1970());
  writer_.text(context.validate_opaque == nullptr ? "" : context.validate_opaque);
  writer_.zigzag(context.thandle);
  if (path == nullptr) {
    writer_.path_size(0);
  } else {
    is_known = hooks::write(writer_, *path);
  }
  if (value == nullptr) {
    writer_.no_value();
  } else {
    is_known = hooks::write(writer_, *value) && is_known;
  }
  writer_.optional_number(last_extension_);
  limits_.write(writer_);
  writer_.end_header();
  if (!is_known) give_up("the value under validation is of a type whose content is not known");
}

void Tape::stop(const std::int32_t *verdict) {
  const std::uint64_t duration = nanoseconds_since(began_);
  is_running_ = false;
  const std::int64_t answer = verdict == nullptr ? 0 : *verdict;
  const std::string_view message = message_ ? std::string_view(*message_) : std::string_view();
  writer_.trailer(verdict == nullptr ? nullptr : &answer, message_ ? &message : nullptr, duration);
  writer_.finish();
}

const char *Tape::problem() const {
  return problem_ != nullptr ? problem_ : "it is larger than 8 MiB, or memory is short";
}

void Tape::note_time(std::int64_t now) {
  last_time_ = now;
  if (!last_extension_) last_extension_ = now;
}

// Never destroyed: the library may be asked until the process has ended.
Tape &tape() {
  static Tape &tape = *new Tape;
  return tape;
}

}  // namespace recorder
