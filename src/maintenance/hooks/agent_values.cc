#include "maintenance/hooks/agent_values.h"

#include <arpa/inet.h>

#include <cstring>

namespace hooks {

namespace {

using recording::AgentValue;

static_assert(static_cast<int>(recording::kNoExists) == static_cast<int>(C_NOEXISTS));
static_assert(static_cast<int>(recording::kBuffer) == static_cast<int>(C_BUF));
static_assert(static_cast<int>(recording::kEnumValue) == static_cast<int>(C_ENUM_VALUE));
static_assert(static_cast<int>(recording::kEmpty) == static_cast<int>(C_EMPTY));

/// A value without a copy of its text.
struct ValueView {
  std::uint64_t bits = 0;
  std::string_view text;
  bool is_known = true;
};

std::uint64_t widened(std::int64_t number) { return static_cast<std::uint64_t>(number); }

std::uint64_t bits_of(double number) {
  std::uint64_t bits = 0;
  std::memcpy(&bits, &number, sizeof bits);
  return bits;
}

ValueView view(const confd_value_t &value) {
  switch (value.type) {
    case C_BUF:
      return {0, {reinterpret_cast<const char *>(value.val.buf.ptr), value.val.buf.size}};
    case C_STR:
      return {0, value.val.s};
    case C_XMLTAG:
      return {std::uint64_t{value.val.xmltag.ns} << 32 | value.val.xmltag.tag, {}};
    case C_INT8:
      return {widened(value.val.i8), {}};
    case C_INT16:
      return {widened(value.val.i16), {}};
    case C_INT32:
      return {widened(value.val.i32), {}};
    case C_INT64:
      return {widened(value.val.i64), {}};
    case C_ENUM_VALUE:
      return {widened(value.val.enumvalue), {}};
    case C_UINT8:
      return {value.val.u8, {}};
    case C_UINT16:
      return {value.val.u16, {}};
    case C_UINT32:
      return {value.val.u32, {}};
    case C_UINT64:
      return {value.val.u64, {}};
    case C_DOUBLE:
      return {bits_of(value.val.d), {}};
    case C_BOOL:
      return {value.val.boolean != 0, {}};
    case C_IPV4:
      return {ntohl(value.val.ip.s_addr), {}};
    case C_IPV6:
      return {0, {reinterpret_cast<const char *>(&value.val.ip6), sizeof value.val.ip6}};
    case C_NOEXISTS:
    case C_DEFAULT:
    case C_EMPTY:
      return {};
    default:
      return {0, {}, false};
  }
}

unsigned char *text_of(const AgentValue &value) {
  return reinterpret_cast<unsigned char *>(const_cast<char *>(value.text.data()));
}

void set_number(confd_value_t &target, const AgentValue &value) {
  const auto number = static_cast<std::int64_t>(value.bits);
  switch (target.type) {
    case C_INT8:
      target.val.i8 = static_cast<std::int8_t>(number);
      break;
    case C_INT16:
      target.val.i16 = static_cast<std::int16_t>(number);
      break;
    case C_INT32:
      target.val.i32 = static_cast<std::int32_t>(number);
      break;
    case C_ENUM_VALUE:
      target.val.enumvalue = static_cast<std::int32_t>(number);
      break;
    case C_UINT8:
      target.val.u8 = static_cast<std::uint8_t>(value.bits);
      break;
    case C_UINT16:
      target.val.u16 = static_cast<std::uint16_t>(value.bits);
      break;
    case C_UINT32:
      target.val.u32 = static_cast<std::uint32_t>(value.bits);
      break;
    case C_BOOL:
      target.val.boolean = value.bits != 0 ? 1 : 0;
      break;
    case C_IPV4:
      target.val.ip.s_addr = htonl(static_cast<std::uint32_t>(value.bits));
      break;
    case C_DOUBLE:
      std::memcpy(&target.val.d, &value.bits, sizeof target.val.d);
      break;
    default:
      target.val.u64 = value.bits;
  }
}

}  // namespace

bool write(recording::Writer &writer, const confd_value_t &value) {
  const ValueView seen = view(value);
  writer.agent_value(static_cast<std::uint32_t>(value.type), seen.bits, seen.text);
  return seen.is_known;
}

bool write(recording::Writer &writer, const confd_hkeypath_t &path) {
  bool is_known = true;
  writer.path_size(static_cast<std::size_t>(path.len));
  for (int i = 0; i < path.len; ++i) {
    const confd_value_t *values = path.v[i];
    const bool is_name = values[0].type == C_XMLTAG;
    for (int k = 0; k < (is_name ? 1 : MAXKEYLEN) && values[k].type != C_NOEXISTS; ++k) {
      is_known = write(writer, values[k]) && is_known;
    }
    writer.end_items();
  }
  return is_known;
}

confd_value_t borrowed(const AgentValue &value) {
  confd_value_t result{};
  result.type = static_cast<confd_vtype>(value.type);
  switch (result.type) {
    case C_BUF:
      result.val.buf = {static_cast<unsigned int>(value.text.size()), text_of(value)};
      break;
    case C_STR:
      result.val.s = reinterpret_cast<char *>(text_of(value));
      break;
    case C_IPV6:
      std::memcpy(&result.val.ip6, value.text.data(), std::min(value.text.size(), sizeof result.val.ip6));
      break;
    case C_XMLTAG:
      result.val.xmltag = {static_cast<std::uint32_t>(value.bits), static_cast<std::uint32_t>(value.bits >> 32)};
      break;
    default:
      set_number(result, value);
  }
  return result;
}

recording::AgentValue recorded(const confd_value_t &value) {
  const ValueView seen = view(value);
  return {static_cast<std::uint32_t>(value.type), seen.bits, std::string(seen.text)};
}

}  // namespace hooks
