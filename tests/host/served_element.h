#ifndef TESTS_HOST_SERVED_ELEMENT_H
#define TESTS_HOST_SERVED_ELEMENT_H

#include <gtest/gtest.h>

#include <cstdarg>
#include <cstdint>
#include <memory>
#include <string>

#include "confd_lib.h"
#include "element/datastore/transaction.h"
#include "host/seam/host_session.h"

namespace host_test {

/// The data model, compiled once a program.
inline const element::Schema &schema() {
  static const element::Schema model;
  return model;
}

inline element::Ipv4 address(const char *dotted) {
  const auto value = element::value_from_text(*schema().find("/internal/int-sub-vpls-vpn-nbr/neighbor"), dotted);
  return std::get<element::Ipv4>(value.value());
}

/// A value that a test hands over the seam; `text` must outlive it.
inline confd_value_t buf(const std::string &text) {
  confd_value_t value{};
  value.type = C_BUF;
  value.val.buf = {static_cast<unsigned>(text.size()),
                   reinterpret_cast<unsigned char *>(const_cast<char *>(text.data()))};
  return value;
}

inline confd_value_t u32(std::uint32_t number) {
  confd_value_t value{};
  value.type = C_UINT32;
  value.val.u32 = number;
  return value;
}

inline confd_value_t i32(std::int32_t number) {
  confd_value_t value{};
  value.type = C_INT32;
  value.val.i32 = number;
  return value;
}

/// Type and content of a value that came over the seam, "C_BUF north".
inline std::string shown(const confd_value_t &value) {
  switch (value.type) {
    case C_NOEXISTS:
      return "C_NOEXISTS";
    case C_XMLTAG:
      return "C_XMLTAG " + std::to_string(value.val.xmltag.tag);
    case C_BUF:
      return "C_BUF " + std::string(reinterpret_cast<const char *>(value.val.buf.ptr), value.val.buf.size);
    case C_UINT16:
      return "C_UINT16 " + std::to_string(value.val.u16);
    case C_UINT32:
      return "C_UINT32 " + std::to_string(value.val.u32);
    case C_INT32:
      return "C_INT32 " + std::to_string(value.val.i32);
    case C_ENUM_VALUE:
      return "C_ENUM_VALUE " + std::to_string(value.val.enumvalue);
    case C_IPV4:
      return "C_IPV4 " + element::to_text(element::Ipv4{value.val.ip.s_addr});
    default:
      return "type " + std::to_string(value.type);
  }
}

inline std::string tag(std::string_view name) { return "C_XMLTAG " + std::to_string(element::node_tag(name)); }

/// An element whose configurations a test writes by hand, then serves. A test that leaves something open or handed out
/// fails.
class ServedElement : public ::testing::Test {
 protected:
  void serve() {
    session.serve(nullptr);
    transaction = std::make_unique<element::Transaction>(running, candidate);
    session.serve(transaction.get());
  }

  void TearDown() override {
    EXPECT_EQ(session.statistics.open_cursors, 0);
    EXPECT_EQ(session.statistics.open_sessions, 0);
    EXPECT_EQ(session.statistics.owned_values, 0);
  }

  /// Makes the next call of a function fail.
  void fail_next(host::SeamFunction function) {
    session.injected_failure = {function, session.statistics.calls[static_cast<std::size_t>(function)] + 1, false};
  }

  element::Profile profile{{}, {{"gigabit-ethernet-1/1/1", 1, 1001}, {"ten-gigabit-ethernet-1/2/1", 2, 1002}}};
  element::Tree running{schema()};
  element::Tree candidate{schema()};
  host::HostSession session{profile};
  std::unique_ptr<element::Transaction> transaction;
  const int sock = session.maapi_socket();
  const int thandle = session.transaction_handle();
};

}  // namespace host_test

#endif
