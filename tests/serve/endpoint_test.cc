#include "serve/endpoint.h"

#include <gtest/gtest.h>

#include "serve/serve_error.h"

namespace {

using serve::Endpoint;
using serve::parse_endpoint;

using Parts = std::pair<std::string, int>;

Parts parts(const std::string &text) {
  const Endpoint endpoint = parse_endpoint(text);
  return {endpoint.address, endpoint.port};
}

TEST(Endpoint, is_an_address_and_a_port_or_one_of_them) {
  EXPECT_EQ(parts("192.0.2.1:830"), (Parts{"192.0.2.1", 830}));
  EXPECT_EQ(parts("192.0.2.1"), (Parts{"192.0.2.1", 0}));
  EXPECT_EQ(parts("8300"), (Parts{"127.0.0.1", 8300}));
  EXPECT_EQ(parts("[::1]:65535"), (Parts{"::1", 65535}));
  EXPECT_EQ(parts("[::1]"), (Parts{"::1", 0}));
  EXPECT_EQ(parts("2001:db8::1"), (Parts{"2001:db8::1", 0}));
}

TEST(Endpoint, what_is_none_is_refused) {
  for (const char *text : {"", "host", "host:830", ":830", "127.0.0.1:", "127.0.0.1:65536", "127.0.0.1:-1", "65536",
                           "127.0.0.1:83x", "[::1", "::1]:830", "127.0.0.1:830:1"}) {
    EXPECT_THROW(parse_endpoint(text), serve::ServeError) << text;
  }
}

TEST(Endpoint, knows_the_machines_own_addresses) {
  EXPECT_TRUE(parse_endpoint("127.3.2.1").is_loopback());
  EXPECT_TRUE(parse_endpoint("::1").is_loopback());
  EXPECT_FALSE(parse_endpoint("0.0.0.0").is_loopback());
  EXPECT_FALSE(parse_endpoint("::").is_loopback());
}

TEST(Endpoint, gets_a_port_that_is_free) {
  const Endpoint endpoint = free_endpoint(parse_endpoint("127.0.0.1"));
  EXPECT_GT(endpoint.port, 0);
  EXPECT_EQ(free_endpoint(endpoint).port, endpoint.port);
}

}  // namespace
