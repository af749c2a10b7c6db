#include "maintenance/commits/answer.h"

#include <cstring>

#include "rules/rule.h"

namespace maintenance {
namespace {

class Writer {
 public:
  void number(std::uint64_t value) {
    char bytes[sizeof value];
    std::memcpy(bytes, &value, sizeof value);
    text_.append(bytes, sizeof value);
  }
  void text(const std::string &value) {
    number(value.size());
    text_ += value;
  }
  std::string take() { return std::move(text_); }

 private:
  std::string text_;
};

class Reader {
 public:
  explicit Reader(std::string_view bytes) : rest_(bytes) {}

  std::uint64_t number() {
    std::uint64_t value = 0;
    std::memcpy(&value, rest_.data(), sizeof value);
    rest_.remove_prefix(sizeof value);
    return value;
  }
  std::string text() {
    const std::uint64_t size = number();
    std::string value(rest_.substr(0, size));
    rest_.remove_prefix(size);
    return value;
  }

 private:
  std::string_view rest_;
};

}  // namespace

std::string to_bytes(const Answer &answer) {
  Writer out;
  out.number(static_cast<std::uint64_t>(answer.end));
  out.text(answer.failure);
  out.number(static_cast<std::uint64_t>(answer.decision));
  out.number(answer.points.size());
  for (const host::PointVerdict &point : answer.points) {
    out.text(point.point);
    out.text(point.path);
    out.number(static_cast<std::uint64_t>(point.answer));
    out.text(point.text);
  }
  out.number(answer.trace.size());
  for (const std::string &line : answer.trace) out.text(line);
  for (const std::uint64_t calls : answer.calls) out.number(calls);
  return out.take();
}

Answer answer_from(std::string_view bytes) {
  Reader in(bytes);
  Answer answer;
  answer.end = static_cast<AnswerEnd>(in.number());
  answer.failure = in.text();
  answer.decision = static_cast<host::Decision>(in.number());
  answer.points.resize(in.number());
  for (host::PointVerdict &point : answer.points) {
    point.point = in.text();
    point.path = in.text();
    point.answer = static_cast<host::Answer>(in.number());
    point.text = in.text();
  }
  answer.trace.resize(in.number());
  for (std::string &line : answer.trace) line = in.text();
  for (std::uint64_t &calls : answer.calls) calls = in.number();
  return answer;
}

const host::PointVerdict *words_of(const Answer &answer) {
  const host::PointVerdict *warning = nullptr;
  for (const host::PointVerdict &point : answer.points) {
    if (point.answer == host::Answer::rejected) return &point;
    if (point.answer == host::Answer::warned && warning == nullptr) warning = &point;
  }
  return warning;
}

std::string rule_id_of(const host::PointVerdict &point) {
  if (point.answer == host::Answer::accepted) return {};
  const rules::Rule *rule = rules::rule_of_message(point.point, point.text);
  return rule == nullptr ? "unknown" : rule->id;
}

}  // namespace maintenance
