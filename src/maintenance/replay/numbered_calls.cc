#include "maintenance/replay/numbered_calls.h"

namespace replay {

namespace {

void add_calls(const std::vector<recording::Call> &calls, std::vector<NumberedCall> &all) {
  for (const recording::Call &call : calls) {
    all.push_back({all.size() + 1, &call});
    for (const recording::Callback &callback : call.callbacks) add_calls(callback.calls, all);
  }
}

}  // namespace

std::vector<NumberedCall> numbered_calls(const recording::Recording &recording) {
  std::vector<NumberedCall> all;
  add_calls(recording.calls, all);
  return all;
}

}  // namespace replay
