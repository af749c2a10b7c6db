#include "headroom/boundary.h"

#include <algorithm>
#include <utility>

namespace headroom {
namespace {

/// The numbers between which the boundary lies, and where messages say that it is.
class Bracket {
 public:
  explicit Bracket(const Excess &excess) : excess_(excess) {}

  bool is_open() const { return rejected_ - boundary.accepted > 1; }

  void accept(std::uint64_t number) { boundary.accepted = number; }

  // A rule that stops counting at its limit tells too small an excess each time: once wrong, it is not believed again.
  void reject(std::uint64_t number, Answer answer) {
    is_believed_ = is_believed_ && number != told_;
    const std::optional<std::uint64_t> excess = excess_(answer, number);
    told_ = excess && *excess <= number ? number - *excess : number;
    rejected_ = number;
    boundary.rejection = std::move(answer);
  }

  std::uint64_t next_probe() const {
    if (is_believed_ && told_ == boundary.accepted) return boundary.accepted + 1;
    if (is_believed_ && boundary.accepted < told_ && told_ < rejected_) return told_;
    return boundary.accepted + (rejected_ - boundary.accepted) / 2;
  }

  Boundary boundary;

 private:
  const Excess &excess_;
  std::uint64_t rejected_ = 0;
  std::uint64_t told_ = 0;
  bool is_believed_ = true;
};

}  // namespace

Boundary find_boundary(std::uint64_t room, std::uint64_t expected, const Rejection &rejection, const Excess &excess) {
  Bracket bracket(excess);
  const auto ask = [&](std::uint64_t number) {
    if (auto answer = rejection(number)) {
      bracket.reject(number, std::move(*answer));
    } else {
      bracket.accept(number);
    }
  };
  const Boundary &boundary = bracket.boundary;
  while (!boundary.rejection && boundary.accepted < room) {
    ask(std::min(room, boundary.accepted == 0 ? expected + 1 : 2 * boundary.accepted));
  }
  while (boundary.rejection && bracket.is_open()) ask(bracket.next_probe());
  return bracket.boundary;
}

}  // namespace headroom
