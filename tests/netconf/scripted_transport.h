#ifndef TESTS_NETCONF_SCRIPTED_TRANSPORT_H
#define TESTS_NETCONF_SCRIPTED_TRANSPORT_H

#include <algorithm>
#include <string>
#include <utility>

#include "netconf/transport.h"

/// A server that sends a text, at most so many bytes at once, and then ends the connection.
class ScriptedTransport : public netconf::Transport {
 public:
  explicit ScriptedTransport(std::string text, std::size_t at_once = std::string::npos, std::string reason = "")
      : text_(std::move(text)), at_once_(at_once), reason_(std::move(reason)) {}

  std::size_t read(char *buffer, std::size_t size) override {
    const std::size_t count = text_.copy(buffer, std::min(size, at_once_), at_);
    at_ += count;
    return count;
  }
  void write(std::string_view bytes) override { written += bytes; }
  std::string end_reason() override { return reason_; }

  std::string written;  ///< by the client

 private:
  std::string text_;
  std::size_t at_once_;
  std::string reason_;
  std::size_t at_ = 0;
};

#endif
