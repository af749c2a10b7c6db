#ifndef ELEMENT_SCHEMA_VALUE_H
#define ELEMENT_SCHEMA_VALUE_H

#include <cstdint>
#include <string>
#include <variant>

namespace element {

/// Stands for a leaf of type empty that is present.
struct Empty {};

/// An IPv4 address; the word holds the four bytes in network byte order as they stand in memory.
struct Ipv4 {
  std::uint32_t word = 0;
};

/// The numeric value of an enumeration leaf.
struct Enumeration {
  std::int32_t number = 0;
};

/// A leaf's or key's value. std::monostate is "not set". A tree may hold a value of another type than its schema node
/// has: that is how tests write a broken data model.
using Value = std::variant<std::monostate, Empty, std::string, std::int8_t, std::int16_t, std::int32_t, std::int64_t,
                           std::uint8_t, std::uint16_t, std::uint32_t, std::uint64_t, bool, Ipv4, Enumeration>;

/// Orders two values: strings byte by byte, numbers by value, addresses as dotted notation reads; values of different
/// types by type. Negative, zero or positive.
int compare(const Value &a, const Value &b);

inline bool operator==(Empty, Empty) { return true; }
inline bool operator==(Ipv4 a, Ipv4 b) { return a.word == b.word; }
inline bool operator==(Enumeration a, Enumeration b) { return a.number == b.number; }

/// The value as an operator would write it; an enumeration as its number, an unset or empty value as "".
std::string to_text(const Value &value);

}  // namespace element

#endif
