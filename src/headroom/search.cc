#include "headroom/search.h"

#include <algorithm>
#include <utility>

namespace headroom {
namespace {

/// The numbers between which the edge lies, and where rejections say that it is.
class Bracket {
 public:
  explicit Bracket(const Excess &excess) : excess_(excess) {}

  bool is_open() const { return rejected_ - edge.accepted > 1; }

  void accept(std::uint64_t number) { edge.accepted = number; }

  // A message that stops counting tells too little each time: one that was wrong is not believed again.
  void reject(std::uint64_t number, Answer answer) {
    is_believed_ = is_believed_ && number != told_;
    const std::optional<std::uint64_t> excess = excess_(answer, number);
    told_ = excess && *excess <= number ? number - *excess : number;
    rejected_ = number;
    edge.rejection = std::move(answer);
  }

  std::uint64_t next_probe() const {
    if (is_believed_ && told_ == edge.accepted) return edge.accepted + 1;
    if (is_believed_ && edge.accepted < told_ && told_ < rejected_) return told_;
    return edge.accepted + (rejected_ - edge.accepted) / 2;
  }

  Edge edge;

 private:
  const Excess &excess_;
  std::uint64_t rejected_ = 0;
  std::uint64_t told_ = 0;
  bool is_believed_ = true;
};

}  // namespace

Edge find_edge(std::uint64_t room, std::uint64_t suspected, const Rejection &rejection, const Excess &excess) {
  Bracket bracket(excess);
  const auto ask = [&](std::uint64_t number) {
    if (auto answer = rejection(number)) {
      bracket.reject(number, std::move(*answer));
    } else {
      bracket.accept(number);
    }
  };
  const Edge &edge = bracket.edge;
  while (!edge.rejection && edge.accepted < room) {
    ask(std::min(room, edge.accepted == 0 ? suspected + 1 : 2 * edge.accepted));
  }
  while (edge.rejection && bracket.is_open()) ask(bracket.next_probe());
  return bracket.edge;
}

}  // namespace headroom
