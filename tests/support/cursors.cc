#include "tests/support/cursors.h"

#include <algorithm>
#include <utility>

namespace scripted {

void Cursors::open(maapi_cursor &mc, int sock, int thandle, const List *list, std::string path) {
  const auto before = open_.find(&mc);
  if (before != open_.end()) lost_.push_back(before->second.path);
  open_[&mc] = {std::move(path), list, 0, {}};
  mc.sock = sock;
  mc.thandle = thandle;
  mc.host = nullptr;
  stand_on_none(mc);
}

void Cursors::close(maapi_cursor &mc) {
  if (!is_open(mc)) return;
  stand_on_none(mc);
  open_.erase(&mc);
}

std::string Cursors::path(const maapi_cursor &mc) const {
  const auto found = open_.find(&mc);
  return found == open_.end() ? "(not open)" : found->second.path;
}

void Cursors::stand_on(maapi_cursor &mc, std::size_t row) {
  stand_on_none(mc);
  Open &cursor = open_.at(&mc);
  const std::size_t size = cursor.list == nullptr ? 0 : cursor.list->rows.size();
  if (row >= size) {
    cursor.next = size;
    return;
  }
  cursor.next = row + 1;
  for (const Value &key : cursor.list->keys(row)) {
    confd_value_t &out = mc.keys[mc.n++];
    out = borrowed(key);
    if (key.type != C_BUF) continue;
    cursor.texts.push_back(std::make_unique<unsigned char[]>(key.bytes.size() + 1));
    std::copy(key.bytes.begin(), key.bytes.end(), cursor.texts.back().get());
    out.val.buf.ptr = cursor.texts.back().get();
  }
}

void Cursors::stand_on_none(maapi_cursor &mc) {
  mc.n = 0;
  for (confd_value_t &key : mc.keys) key = borrowed(absent());
  const auto found = open_.find(&mc);
  if (found != open_.end()) found->second.texts.clear();
}

std::vector<std::string> Cursors::unclosed() const {
  std::vector<std::string> paths = lost_;
  for (const auto &[mc, cursor] : open_) paths.push_back(cursor.path);
  return paths;
}

}  // namespace scripted
