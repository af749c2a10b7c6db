#ifndef ELEMENT_SCHEMA_VALUE_H
#define ELEMENT_SCHEMA_VALUE_H

#include <cstdint>
#include <string>
#include <variant>

namespace element {

/// The value of a leaf of type empty that is present.
struct Empty {};

/// An IPv4 address. The four bytes of `word` are in network byte order in memory.
struct Ipv4 {
  std::uint32_t word = 0;
};

/// The numeric value of an enumeration leaf.
struct Enumeration {
  std::int32_t number = 0;
};

/// A leaf's or key's value. std::monostate is "not set". The type of a value in a tree may differ
/// from the type of its schema node, so that tests can write a broken data model.
using Value = std::variant<std::monostate, Empty, std::string, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                           std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, bool, Ipv4, Enumeration>;

/// Orders two values: strings byte by byte, numbers by value, addresses as
/// numbers in host byte order, values of different types by type. Returns a negative number, zero or a positive number.
int compare(const Value &a, const Value &b);

inline bool operator==(Empty, Empty) { return true; }
inline bool operator==(Ipv4 a, Ipv4 b) { return a.word == b.word; }
inline bool operator==(Enumeration a, Enumeration b) { return a.number == b.number; }

/// The value as an operator writes it. An enumeration gives its number; an unset or empty value gives "".
std::string to_text(const Value &value);

}  // namespace element

#endif
