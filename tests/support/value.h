#ifndef TESTS_SUPPORT_VALUE_H
#define TESTS_SUPPORT_VALUE_H

#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>
#include <vector>

#include "confd_lib.h"

namespace scripted {

/// A key or leaf as a test writes it. Any type may stand anywhere: that is how a broken data model is written.
struct Value {
  confd_vtype type = C_NOEXISTS;
  std::string bytes;         ///< C_BUF
  std::uint64_t number = 0;  ///< every other type: the union's bits, signed ones sign-extended; C_XMLTAG: the tag

  bool operator==(const Value &) const = default;
};

using Values = std::vector<Value>;

Value text(std::string_view bytes);
Value u32(std::uint32_t number);
Value i32(std::int32_t number);
Value u16(std::uint16_t number);
Value enum_value(std::int32_t number);
Value boolean(bool value);
/// From dotted notation; stops the test program when it is no address.
Value ipv4(const char *dotted);
/// A leaf that is not set, or a nested list.
Value absent();
/// The head of a container, or a leaf of type empty that is present.
Value tag(std::uint32_t number);

/// The address's bytes in network byte order, read as a 32-bit number of this machine.
std::uint32_t address_word(const char *dotted);

/// Negative, zero or positive: texts byte by byte, numbers by value, addresses in network byte order; values of
/// different types by type.
int compare(const Value &a, const Value &b);

/// First key first; fewer before more.
int compare(const Values &a, const Values &b);

/// The value as it stands as a key in a path.
std::string to_text(const Value &value);

/// For a test's output: the type's number and the text.
void PrintTo(const Value &value, std::ostream *out);

/// A value that borrows: the text stays the property of `value`.
confd_value_t borrowed(const Value &value);

/// What a platform function was given.
Value from_platform(const confd_value_t &value);

}  // namespace scripted

#endif
