#include "host/seam/agent_values.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>
#include <string>
#include <string_view>
#include <type_traits>

#include "host/seam/host_session.h"

namespace host {

namespace {

std::string_view text_of(const confd_value_t &value) {
  return {reinterpret_cast<const char *>(value.val.buf.ptr), value.val.buf.size};
}

struct BorrowedValue {
  const element::SchemaNode &leaf;

  confd_value_t operator()(std::monostate) const { return no_value(); }
  confd_value_t operator()(element::Empty) const { return tag_of(leaf); }
  confd_value_t operator()(const std::string &text) const { return borrowed_text(text); }
  confd_value_t operator()(std::int8_t number) const { return scalar(C_INT8, &V::i8, number); }
  confd_value_t operator()(std::int16_t number) const { return scalar(C_INT16, &V::i16, number); }
  confd_value_t operator()(std::int32_t number) const { return scalar(C_INT32, &V::i32, number); }
  confd_value_t operator()(std::int64_t number) const { return scalar(C_INT64, &V::i64, number); }
  confd_value_t operator()(std::uint8_t number) const { return scalar(C_UINT8, &V::u8, number); }
  confd_value_t operator()(std::uint16_t number) const { return scalar(C_UINT16, &V::u16, number); }
  confd_value_t operator()(std::uint32_t number) const { return scalar(C_UINT32, &V::u32, number); }
  confd_value_t operator()(std::uint64_t number) const { return scalar(C_UINT64, &V::u64, number); }
  confd_value_t operator()(bool truth) const { return scalar(C_BOOL, &V::boolean, truth ? 1 : 0); }
  confd_value_t operator()(element::Ipv4 address) const { return scalar(C_IPV4, &V::ip, in_addr{address.word}); }
  confd_value_t operator()(element::Enumeration item) const { return scalar(C_ENUM_VALUE, &V::enumvalue, item.number); }

 private:
  using V = decltype(confd_value_t::val);

  template <typename T>
  static confd_value_t scalar(confd_vtype type, T V::*member, T content) {
    confd_value_t value{};
    value.type = type;
    value.val.*member = content;
    return value;
  }
};

}  // namespace

const element::SchemaNode &key_leaf(const element::SchemaNode &list, std::size_t key) {
  return *list.children[std::min(key, list.key_count - 1)];
}

confd_value_t borrowed_value(const element::Value &value, const element::SchemaNode &leaf) {
  return std::visit(BorrowedValue{leaf}, value);
}

// The seam's declarations know no const; nothing that holds such a value may write to it.
confd_value_t borrowed_text(std::string_view text) {
  confd_value_t value{};
  value.type = C_BUF;
  value.val.buf.size = static_cast<unsigned int>(text.size());
  value.val.buf.ptr = reinterpret_cast<unsigned char *>(const_cast<char *>(text.data()));
  return value;
}

confd_value_t owned_value(const element::Value &value, const element::SchemaNode &leaf) {
  confd_value_t result = borrowed_value(value, leaf);
  if (result.type != C_BUF) return result;

  const std::string_view text = text_of(result);
  auto *copy = static_cast<unsigned char *>(std::malloc(text.size() + 1));
  if (copy == nullptr) throw std::bad_alloc();
  std::memcpy(copy, text.data(), text.size());
  copy[text.size()] = 0;
  result.val.buf.ptr = copy;
  ++HostSession::active()->statistics.owned_values;
  return result;
}

std::optional<element::Value> from_agent(const confd_value_t &value) {
  switch (value.type) {
    case C_NOEXISTS:
      return std::monostate{};
    case C_XMLTAG:
      return element::Empty{};
    case C_BUF:
      return std::string(text_of(value));
    case C_STR:
      return std::string(value.val.s);
    case C_INT8:
      return value.val.i8;
    case C_INT16:
      return value.val.i16;
    case C_INT32:
      return value.val.i32;
    case C_INT64:
      return value.val.i64;
    case C_UINT8:
      return value.val.u8;
    case C_UINT16:
      return value.val.u16;
    case C_UINT32:
      return value.val.u32;
    case C_UINT64:
      return value.val.u64;
    case C_BOOL:
      return value.val.boolean != 0;
    case C_IPV4:
      return element::Ipv4{value.val.ip.s_addr};
    case C_ENUM_VALUE:
      return element::Enumeration{value.val.enumvalue};
    default:
      return std::nullopt;
  }
}

confd_vtype agent_type(const element::SchemaNode &leaf) {
  switch (leaf.type) {
    case element::ValueType::none:
      break;
    case element::ValueType::empty:
      return C_XMLTAG;
    case element::ValueType::text:
      return C_BUF;
    case element::ValueType::int8:
      return C_INT8;
    case element::ValueType::int16:
      return C_INT16;
    case element::ValueType::int32:
      return C_INT32;
    case element::ValueType::int64:
      return C_INT64;
    case element::ValueType::uint8:
      return C_UINT8;
    case element::ValueType::uint16:
      return C_UINT16;
    case element::ValueType::uint32:
      return C_UINT32;
    case element::ValueType::uint64:
      return C_UINT64;
    case element::ValueType::boolean:
      return C_BOOL;
    case element::ValueType::ipv4:
      return C_IPV4;
    case element::ValueType::enumeration:
      return C_ENUM_VALUE;
  }
  return C_NOEXISTS;
}

// Nearly all keys are texts and identifiers; these are compared where they stand.
int compare(const confd_value_t &wanted, const element::Value &key) {
  if (wanted.type == C_BUF) {
    if (const auto *text = std::get_if<std::string>(&key)) return text_of(wanted).compare(*text);
  }
  if (wanted.type == C_UINT32) {
    if (const auto *number = std::get_if<std::uint32_t>(&key)) {
      return static_cast<int>(wanted.val.u32 > *number) - static_cast<int>(wanted.val.u32 < *number);
    }
  }
  return element::compare(from_agent(wanted).value_or(std::monostate{}), key);
}

}  // namespace host
