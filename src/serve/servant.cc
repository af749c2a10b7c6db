#include "serve/servant.h"

namespace serve {
namespace {

constexpr std::size_t kPiece = std::size_t{1} << 16;

/// A line that is longer is cut: nobody reads it.
constexpr std::size_t kLongestLine = std::size_t{1} << 20;

/// The program behind the two that prepare it, each of which becomes the next.
std::vector<std::string> arguments_of(const ServantStart &start) {
  std::vector<std::string> arguments{"--pdeathsig", "TERM", "--", "env", "-i"};
  arguments.insert(arguments.end(), start.variables.begin(), start.variables.end());
  arguments.push_back(start.program.string());
  arguments.insert(arguments.end(), start.arguments.begin(), start.arguments.end());
  return arguments;
}

}  // namespace

Servant::Servant(const ServantStart &start, const sigset_t &mask)
    : child_(start.setpriv, arguments_of(start), mask), end_(child_.end()), buffer_(kPiece) {}

std::vector<pollfd> Servant::places() const {
  return {{child_.out().number(), POLLIN, 0}, {child_.err().number(), POLLIN, 0}, {end_.number(), POLLIN, 0}};
}

void Servant::read(const std::vector<pollfd> &ready, const Line &line) {
  if (ready[0].revents != 0) take(out_, child_.read_out(buffer_.data(), buffer_.size()), line);
  if (ready[1].revents != 0) take(err_, child_.read_err(buffer_.data(), buffer_.size()), line);
  // What it said last is taken first.
  if (ready[0].revents == 0 && ready[1].revents == 0 && ready[2].revents != 0) end_.close();
}

void Servant::take(std::string &rest, std::size_t count, const Line &line) {
  for (std::size_t i = 0; i < count; ++i) {
    const char c = buffer_[i];
    if (c != '\n') {
      if (c != '\r' && rest.size() < kLongestLine) rest += c;
      continue;
    }
    if (!rest.empty()) last_line_ = rest;
    line(rest);
    rest.clear();
  }
}

}  // namespace serve
