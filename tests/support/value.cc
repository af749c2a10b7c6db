#include "tests/support/value.h"

#include <arpa/inet.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ostream>

namespace scripted {

namespace {

std::uint64_t sign_extended(std::int64_t number) { return static_cast<std::uint64_t>(number); }

bool is_signed(confd_vtype type) {
  return type == C_INT8 || type == C_INT16 || type == C_INT32 || type == C_INT64 || type == C_ENUM_VALUE;
}

template <typename T>
int three_way(const T &a, const T &b) {
  if (a == b) return 0;
  return a < b ? -1 : 1;
}

std::string dotted_text(std::uint64_t number) {
  const auto word = static_cast<std::uint32_t>(number);
  std::array<char, INET_ADDRSTRLEN> buffer{};
  inet_ntop(AF_INET, &word, buffer.data(), buffer.size());
  return buffer.data();
}

}  // namespace

Value text(std::string_view bytes) { return {C_BUF, std::string(bytes), 0}; }
Value u32(std::uint32_t number) { return {C_UINT32, {}, number}; }
Value i32(std::int32_t number) { return {C_INT32, {}, sign_extended(number)}; }
Value u16(std::uint16_t number) { return {C_UINT16, {}, number}; }
Value enum_value(std::int32_t number) { return {C_ENUM_VALUE, {}, sign_extended(number)}; }
Value boolean(bool value) { return {C_BOOL, {}, value ? 1U : 0U}; }
Value ipv4(const char *dotted) { return {C_IPV4, {}, address_word(dotted)}; }
Value absent() { return {}; }
Value tag(std::uint32_t number) { return {C_XMLTAG, {}, number}; }

std::uint32_t address_word(const char *dotted) {
  std::uint32_t word = 0;
  if (inet_pton(AF_INET, dotted, &word) != 1) {
    std::fprintf(stderr, "no IPv4 address: %s\n", dotted);
    std::abort();
  }
  return word;
}

int compare(const Value &a, const Value &b) {
  if (a.type != b.type) return three_way(a.type, b.type);
  if (a.type == C_BUF) return a.bytes.compare(b.bytes);
  if (a.type == C_IPV4) {
    return three_way(ntohl(static_cast<std::uint32_t>(a.number)), ntohl(static_cast<std::uint32_t>(b.number)));
  }
  if (is_signed(a.type)) return three_way(static_cast<std::int64_t>(a.number), static_cast<std::int64_t>(b.number));
  return three_way(a.number, b.number);
}

int compare(const Values &a, const Values &b) {
  for (std::size_t i = 0; i < a.size() && i < b.size(); ++i) {
    const int order = compare(a[i], b[i]);
    if (order != 0) return order;
  }
  return three_way(a.size(), b.size());
}

std::string to_text(const Value &value) {
  switch (value.type) {
    case C_BUF:
      return value.bytes;
    case C_NOEXISTS:
    case C_XMLTAG:
      return "";
    case C_IPV4:
      return dotted_text(value.number);
    case C_BOOL:
      return value.number != 0 ? "true" : "false";
    default:
      return is_signed(value.type) ? std::to_string(static_cast<std::int64_t>(value.number))
                                   : std::to_string(value.number);
  }
}

void PrintTo(const Value &value, std::ostream *out) { *out << "type " << value.type << " \"" << to_text(value) << '"'; }

confd_value_t borrowed(const Value &value) {
  confd_value_t out{};
  out.type = value.type;
  if (value.type == C_BUF) {
    out.val.buf.size = static_cast<unsigned>(value.bytes.size());
    out.val.buf.ptr = reinterpret_cast<unsigned char *>(const_cast<char *>(value.bytes.c_str()));
  } else if (value.type == C_XMLTAG) {
    out.val.xmltag = {static_cast<std::uint32_t>(value.number), 0};
  } else if (value.type == C_UINT16) {
    out.val.u16 = static_cast<std::uint16_t>(value.number);
  } else if (value.type == C_BOOL) {
    out.val.boolean = static_cast<int>(value.number);
  } else {
    out.val.u32 = static_cast<std::uint32_t>(value.number);
  }
  return out;
}

Value from_platform(const confd_value_t &value) {
  switch (value.type) {
    case C_BUF:
      return text({reinterpret_cast<const char *>(value.val.buf.ptr), value.val.buf.size});
    case C_XMLTAG:
      return tag(value.val.xmltag.tag);
    case C_INT32:
      return i32(value.val.i32);
    case C_ENUM_VALUE:
      return enum_value(value.val.enumvalue);
    case C_BOOL:
      return boolean(value.val.boolean != 0);
    case C_UINT16:
      return u16(value.val.u16);
    case C_NOEXISTS:
      return absent();
    default:
      return {value.type, {}, value.val.u32};
  }
}

}  // namespace scripted
