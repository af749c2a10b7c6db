#include "element/schema/value.h"

#include <arpa/inet.h>
#include <fmt/format.h>

#include <type_traits>

namespace element {
namespace {

template <typename T>
int three_way(const T &a, const T &b) {
  if (a < b) return -1;
  return b < a ? 1 : 0;
}

struct Comparison {
  template <typename T, typename U>
  int operator()(const T &, const U &) const {
    return 0;  // never asked: the types were compared before
  }
  template <typename T>
  int operator()(const T &a, const T &b) const {
    if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Empty>) {
      return 0;
    } else if constexpr (std::is_same_v<T, std::string>) {
      return a.compare(b);
    } else if constexpr (std::is_same_v<T, Ipv4>) {
      return three_way(ntohl(a.word), ntohl(b.word));
    } else if constexpr (std::is_same_v<T, Enumeration>) {
      return three_way(a.number, b.number);
    } else {
      return three_way(a, b);
    }
  }
};

std::string dotted(Ipv4 address) {
  char buffer[INET_ADDRSTRLEN];
  return inet_ntop(AF_INET, &address.word, buffer, sizeof buffer);
}

}  // namespace

int compare(const Value &a, const Value &b) {
  if (a.index() != b.index()) return three_way(a.index(), b.index());
  return std::visit(Comparison{}, a, b);
}

std::string to_text(const Value &value) {
  return std::visit(
      [](const auto &content) -> std::string {
        using T = std::decay_t<decltype(content)>;
        if constexpr (std::is_same_v<T, std::monostate> || std::is_same_v<T, Empty>) {
          return {};
        } else if constexpr (std::is_same_v<T, Ipv4>) {
          return dotted(content);
        } else if constexpr (std::is_same_v<T, Enumeration>) {
          return fmt::to_string(content.number);
        } else if constexpr (std::is_same_v<T, std::int8_t> || std::is_same_v<T, std::uint8_t>) {
          return fmt::to_string(static_cast<int>(content));
        } else {
          return fmt::to_string(content);
        }
      },
      value);
}

}  // namespace element
