#include "tests/support/platform.h"

#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <utility>

#include "confd_cdb.h"

int confd_errno = 0;

namespace scripted {

namespace {

Platform *active_platform = nullptr;
std::map<std::string, std::size_t, std::less<>> calls_of_process;

[[noreturn]] void stop(const char *why) {
  std::fprintf(stderr, "scripted platform: %s\n", why);
  std::abort();
}

}  // namespace

Platform::Platform() {
  if (active_platform != nullptr) stop("another one is active");
  active_platform = this;
  context_.thandle = thandle();
  context_.vcb_opaque = middleware();
  set_point("");
  confd_errno = 0;
}

Platform::~Platform() {
  for (const auto &[memory, description] : handed_out_) std::free(memory);
  active_platform = nullptr;
}

Platform &Platform::active() {
  if (active_platform == nullptr) stop("a call came while none is active");
  return *active_platform;
}

void Platform::set_point(std::string_view name) {
  point_ = name;
  context_.validate_opaque = point_.data();
}

void Platform::list(std::string_view path, std::size_t key_count, std::vector<Values> rows) {
  candidate_.list(path, key_count, std::move(rows));
}

void Platform::entry(std::string_view list_path, Values values, std::size_t key_count) {
  candidate_.entry(list_path, std::move(values), key_count);
}

void Platform::leaf(std::string_view path) { candidate_.leaf(path); }
void Platform::leaf(std::string_view path, Value value) { candidate_.leaf(path, std::move(value)); }
void Platform::object(std::string_view path, Values values) { candidate_.object(path, std::move(values)); }

void Platform::count_as(std::string_view list_path, int count) { told_counts_[to_text(parse_path(list_path))] = count; }

int Platform::instances(const Path &list) const {
  const auto told = told_counts_.find(to_text(list));
  if (told != told_counts_.end()) return told->second;
  const List *found = candidate_.find_list(list);
  return found == nullptr ? 0 : static_cast<int>(found->rows.size());
}

Change &Platform::change(std::string_view path, confd_iter_op op, std::optional<Value> new_value) {
  Path parsed = parse_path(path);
  key_counts_.learn_ancestors(parsed);
  return changes_.emplace_back(Change{std::move(parsed), op, std::move(new_value), {}});
}

Change &Platform::change_entry(std::string_view list_path, const Values &keys, confd_iter_op op) {
  Path path = parse_path(list_path);
  std::vector<Values> elements = key_path_elements(path);
  elements.insert(elements.begin(), keys);
  for (const Value &key : keys) path.back().keys.push_back(to_text(key));
  key_counts_.learn_ancestors(path);
  return changes_.emplace_back(Change{std::move(path), op, {}, std::move(elements)});
}

KeyPath Platform::key_path(std::string_view path) const { return KeyPath(key_path_elements(parse_path(path))); }

std::vector<Values> Platform::key_path_elements(const Path &path) const {
  std::vector<Values> elements;
  Path node;
  for (const Step &step : path) {
    node.push_back(step);
    elements.insert(elements.begin(), {tag(tag_of(step.name))});
    if (step.keys.empty()) continue;
    const Values *row = candidate_.find_entry(node);
    if (row == nullptr) row = running_.find_entry(node);
    Values keys;
    for (std::size_t i = 0; i < step.keys.size(); ++i) keys.push_back(row != nullptr ? (*row)[i] : text(step.keys[i]));
    elements.insert(elements.begin(), std::move(keys));
  }
  return elements;
}

void Platform::interface(std::string_view name, limid_t limid, std::int32_t ifindex) {
  interfaces_.push_back({std::string(name), limid, ifindex});
  valid_name(name);
}

std::size_t Platform::count(std::string_view function) const {
  const auto found = counts_.find(function);
  return found == counts_.end() ? 0 : found->second;
}

void Platform::forget_calls() {
  calls_.clear();
  counts_.clear();
}

const std::map<std::string, std::size_t, std::less<>> &Platform::calls_of_process() {
  return scripted::calls_of_process;
}

void Platform::fail(std::string_view function, std::size_t nth) { faults_[std::string(function)] = {nth, false}; }
void Platform::fail_from(std::string_view function, std::size_t nth) { faults_[std::string(function)] = {nth, true}; }

std::vector<std::string> Platform::leaks() const {
  std::vector<std::string> leaks;
  for (const std::string &path : cursors.unclosed()) leaks.push_back("cursor on " + path);
  for (const int session : open_sessions_) leaks.push_back("CDB session " + std::to_string(session));
  for (const auto &[memory, description] : handed_out_) leaks.push_back("value " + description);
  return leaks;
}

bool Platform::enter(std::string_view function, std::string_view detail) {
  const std::size_t nth = ++counts_[std::string(function)];
  ++scripted::calls_of_process[std::string(function)];
  if (function != "confd_free_value") {
    calls_.emplace_back(function);
    if (!detail.empty()) calls_.back().append(" ").append(detail);
  }
  const auto fault = faults_.find(function);
  if (fault == faults_.end()) return false;
  const bool fails = fault->second.and_later ? nth >= fault->second.nth : nth == fault->second.nth;
  if (fails) confd_errno = CONFD_ERR_OS;
  return fails;
}

std::optional<Path> Platform::enter_read(const char *function, int sock, int handle, const char *format,
                                         va_list arguments) {
  const std::string text = format_path(format, arguments);
  if (enter(function, text) || !is_transaction(sock, handle, function)) return std::nullopt;
  return read_path(text);
}

std::optional<Path> Platform::enter_cdb_read(const char *function, int sock, const char *format, va_list arguments,
                                             const std::string &detail) {
  const std::string text = format_path(format, arguments);
  if (enter(function, text + detail)) return std::nullopt;
  if (!open_sessions_.contains(sock)) {
    fail_with(CONFD_ERR_NOSESSION);
    return std::nullopt;
  }
  return read_path(text);
}

std::optional<Path> Platform::read_path(const std::string &text) {
  try {
    Path path = parse_path(text);
    if (key_counts_.fit(path)) return path;
  } catch (const PathError &) {
    // A path that cannot be read fails as one that does not fit.
  }
  fail_with(CONFD_ERR_BADPATH);
  return std::nullopt;
}

bool Platform::is_transaction(int sock, int handle, std::string_view function) {
  if (sock == socket() && handle == thandle()) return true;
  // The socket that a failed look-up left is no other one.
  if (sock != -1) misuse(std::string(function) + " with another socket or transaction");
  fail_with(CONFD_ERR_NOSESSION);
  return false;
}

int Platform::fail_with(int error_number) {
  confd_errno = error_number;
  return CONFD_ERR;
}

void Platform::hand_out(const Value &value, confd_value_t *out) {
  *out = borrowed(value);
  if (value.type != C_BUF) return;
  auto *memory = static_cast<unsigned char *>(std::malloc(value.bytes.size() + 1));
  std::memcpy(memory, value.bytes.c_str(), value.bytes.size() + 1);
  out->val.buf.ptr = memory;
  handed_out_.emplace(memory, value.bytes);
}

void Platform::take_back(confd_value_t *value) {
  if (value->type != C_BUF) return;
  if (handed_out_.erase(value->val.buf.ptr) == 0) {
    misuse("confd_free_value of what was not handed out or is already freed");
    return;
  }
  std::free(value->val.buf.ptr);
}

int Platform::start_session(const void *instance, int database, bool option) {
  const bool failed = enter("cdb_session_start", std::to_string(database) + (option ? " true" : " false"));
  if (failed || instance != middleware() || database != CDB_RUNNING) return -1;
  open_sessions_.insert(next_session_);
  return next_session_++;
}

void Platform::end_session(int sock) {
  enter("cdb_session_end");
  open_sessions_.erase(sock);
}

}  // namespace scripted
