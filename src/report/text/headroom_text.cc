#include "report/text/headroom_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <string>

#include "report/decision_text.h"
#include "report/escape/printable.h"

namespace report {
namespace {

using headroom::Answer;
using headroom::Limit;
using headroom::LimitState;
using headroom::LimitUsage;

std::string_view title(Limit limit) {
  switch (limit) {
    case Limit::vpns:
      return "VPNs";
    case Limit::pseudowires:
      return "pseudowires";
    case Limit::access_interfaces:
      return "access interfaces of a VPLS VPN";
    case Limit::encapsulation_vlans:
      return "selective encapsulation: VLANs and ranges";
    case Limit::encapsulation_ranges:
      return "selective encapsulation: ranges";
    case Limit::interface_ranges:
      return "selective encapsulation: ranges of an access interface";
    case Limit::bridge_mtu:
      return "bridge MTU of a VPLS VPN with a service port, in bytes";
  }
  return "?";
}

std::string rejection_text(const Answer &answer) { return printable(answer.point + ": " + answer.message); }

/// Texts that cells refer to: (1), (2) and so on.
class Notes {
 public:
  std::string refer_to(const std::string &text) {
    auto place = std::find(texts_.begin(), texts_.end(), text);
    if (place == texts_.end()) place = texts_.insert(place, text);
    return fmt::format("({})", place - texts_.begin() + 1);
  }

  void write(std::ostream &out) const {
    for (std::size_t i = 0; i < texts_.size(); ++i) out << fmt::format("({}) {}\n", i + 1, texts_[i]);
    if (!texts_.empty()) out << '\n';
  }

 private:
  std::vector<std::string> texts_;
};

std::string cell(const LimitUsage &usage, Notes &notes) {
  const std::string left = usage.left ? fmt::to_string(*usage.left) : "?";
  const std::string of = usage.allowed ? fmt::format(" of {}", *usage.allowed) : "";
  switch (usage.state) {
    case LimitState::measured:
    case LimitState::exceeded:
      return left + of;
    case LimitState::stopped:
      return left + of + ' ' + notes.refer_to("stopped by " + rejection_text(usage.stop.value_or(Answer{})));
    case LimitState::no_room:
      return left + ' ' + notes.refer_to("no VLANs of the interface are free for another range");
    case LimitState::no_limit:
      return left + "+ " + notes.refer_to("no limit met: the search went no further");
  }
  return "?";
}

/// Columns as wide as their widest text, two blanks apart; texts to the left, the second column's to the right.
class Table {
 public:
  void add(std::vector<std::string> row) {
    widths_.resize(std::max(widths_.size(), row.size()));
    for (std::size_t i = 0; i < row.size(); ++i) widths_[i] = std::max(widths_[i], row[i].size());
    rows_.push_back(std::move(row));
  }

  void write(std::ostream &out) const {
    for (const std::vector<std::string> &row : rows_) {
      std::string line;
      for (std::size_t i = 0; i < row.size(); ++i) {
        line += i == 1 ? fmt::format("  {:>{}}", row[i], widths_[i])
                       : fmt::format("{}{:<{}}", i == 0 ? "" : "  ", row[i], widths_[i]);
      }
      line.erase(line.find_last_not_of(' ') + 1);
      out << line << '\n';
    }
  }

 private:
  std::vector<std::size_t> widths_;
  std::vector<std::vector<std::string>> rows_;
};

std::string used_text(const HeadroomReport &report, std::size_t row) {
  for (const ElementHeadroom &element : report.elements) {
    if (const auto used = element.measurement.usages[row].used) return fmt::to_string(*used);
  }
  return "?";
}

void add_limits(Table &table, const HeadroomReport &report, Notes &notes) {
  const std::vector<LimitUsage> &rows = report.elements.front().measurement.usages;
  for (std::size_t i = 0; i < rows.size(); ++i) {
    const std::string owner = printable(rows[i].vpn + rows[i].interface);
    const bool is_first = i == 0 || rows[i - 1].limit != rows[i].limit;
    if (!owner.empty() && is_first) table.add({std::string(title(rows[i].limit))});
    std::vector<std::string> row{owner.empty() ? std::string(title(rows[i].limit)) : "  " + owner,
                                 used_text(report, i)};
    for (const ElementHeadroom &element : report.elements) {
      row.push_back(cell(element.measurement.usages[i], notes));
    }
    table.add(std::move(row));
  }
}

void write_verdicts(std::ostream &out, const HeadroomReport &report) {
  for (std::size_t i = 0; i < report.elements.size(); ++i) {
    const ElementHeadroom &element = report.elements[i];
    out << fmt::format("[{}] {}: {}\n", i + 1, printable(element.file), decision_text(element.measurement.decision));
    for (const Answer &answer : element.measurement.answers) out << "    " << rejection_text(answer) << '\n';
    for (const UnreadableName &name : element.unreadable) out << "    " << to_text(name) << '\n';
  }
  out << '\n';
}

}  // namespace

void write_headroom_text(std::ostream &out, const HeadroomReport &report) {
  write_verdicts(out, report);
  Table table;
  Notes notes;
  std::vector<std::string> head{"left of each limit", "used"};
  for (std::size_t i = 0; i < report.elements.size(); ++i) head.push_back(fmt::format("[{}]", i + 1));
  table.add(std::move(head));
  add_limits(table, report, notes);
  table.write(out);
  out << '\n';
  notes.write(out);
  out << fmt::format("decided by {}, build id {}\n", printable(report.plugin_file), report.build_id);
}

}  // namespace report
