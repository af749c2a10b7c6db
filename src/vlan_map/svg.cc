#include "vlan_map/svg.h"

#include <fmt/format.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string_view>
#include <utility>
#include <vector>

#include "report/escape/markup.h"
#include "vlan_map/assets.h"
#include "vlan_map/bars.h"
#include "vlan_map/free_vlans.h"
#include "vlan_map/labels.h"
#include "vlan_map/layout.h"

namespace vlan_map {
namespace {

using report::to_markup;

constexpr double kMargin = 16;
constexpr double kLineHeight = 18;
constexpr double kScaleHeight = 20;
constexpr double kTextWidth = 7.4;  ///< of a character of running text, about
constexpr double kFlagsWidth = 90;
constexpr std::size_t kMessageColumns = 190;
constexpr std::size_t kRowsToAScale = 40;
constexpr std::size_t kFewPorts = 8;
constexpr std::size_t kLanesOfFew = 10;  ///< for names; claims that need more lanes have them
constexpr std::size_t kLanesOfMany = 5;
constexpr double kFreeSample = 24;
constexpr double kSheetHeight = 760;  ///< of the rows on a sheet of paper; one row may be higher
constexpr std::size_t kFlags = 3;

/// The begin of the character of UTF-8 that the byte at `offset` belongs to.
std::size_t character_begin(std::string_view text, std::size_t offset) {
  while (offset > 1 && (static_cast<unsigned char>(text[offset]) & 0xc0u) == 0x80u) --offset;
  return offset;
}

/// The text in lines of at most so many bytes, broken at blanks where there are any.
std::vector<std::string> wrapped(std::string_view text, std::size_t columns) {
  std::vector<std::string> lines;
  while (text.size() > columns) {
    const std::size_t blank = text.rfind(' ', columns);
    const bool breaks = blank != std::string_view::npos && blank > 0;
    const std::size_t end = breaks ? blank : character_begin(text, columns);
    lines.emplace_back(text.substr(0, end));
    text.remove_prefix(end + (breaks ? 1 : 0));
  }
  lines.emplace_back(text);
  return lines;
}

/// The signs of a port's conflicts, or of the first ones if there are many.
std::string flags_of(const Map &map, const Port &port) {
  std::string flags;
  for (std::size_t i = 0; i < std::min(port.conflicts.size(), kFlags); ++i) {
    flags += (i > 0 ? " " : "") + conflict_sign(map, port.conflicts[i]);
  }
  return flags + (port.conflicts.size() > kFlags ? " ..." : "");
}

/// Enough for the longest name, within reason.
double width_of_names(const Map &map) {
  std::size_t longest = 0;
  for (const Port &port : map.ports) longest = std::max(longest, port.name.size());
  return std::clamp(static_cast<double>(longest) * kTextWidth, 60.0, 280.0);
}

/// "MESSAGE (RULE) FILE:LINE".
std::string line_of(const report::Finding &finding) {
  std::string line = finding.message;
  if (!finding.rule.empty()) line += fmt::format(" ({})", finding.rule);
  if (!finding.place.file.empty()) line += " " + report::to_text(finding.place);
  return line;
}

std::string description_of(const Map &map) {
  std::string text = verdict_text(map) + " " + count_text(map) + ".";
  for (std::size_t i = 0; i < map.conflicts.size(); ++i) {
    text += fmt::format(" {}: {}.", conflict_text(map, i), map.conflicts[i].finding.message);
  }
  for (const std::string &notice : map.notices) text += " " + notice + ".";
  return text;
}

class Picture {
 public:
  explicit Picture(const Map &map)
      : map_(map),
        name_width_(width_of_names(map)),
        plot_left_(kMargin + name_width_ + kFlagsWidth),
        width_(plot_left_ + plot_width() + kMargin) {}

  std::string draw() {
    std::vector<std::size_t> ports(map_.ports.size());
    std::iota(ports.begin(), ports.end(), 0);
    write_head();
    write_conflicts();
    write_legend();
    write_rows(ports, lanes_for(ports.size()));
    return start() + body_ + "</svg>\n";
  }

  std::string draw_sheets(const std::vector<std::size_t> &ports) {
    std::string sheets;
    y_ = 0;
    write_legend();
    for (std::size_t next = 0; next < ports.size();) {
      const std::size_t first = next;
      const std::size_t most_lanes = lanes_for(ports.size());
      double height = y_;
      do {
        height += lay_out(map_, map_.ports[ports[next]], most_lanes).height;
        ++next;
      } while (next < ports.size() && height < kSheetHeight);
      write_rows(
          {ports.begin() + static_cast<std::ptrdiff_t>(first), ports.begin() + static_cast<std::ptrdiff_t>(next)},
          most_lanes);
      sheets +=
          fmt::format("<svg class=\"map\" viewBox=\"0 0 {:.0f} {:.0f}\" role=\"group\" aria-label=\"VLANs by port\">",
                      width_, y_ + kMargin) +
          definitions_markup() + std::exchange(body_, "") + "</svg>\n";
      y_ = 0;
    }
    return sheets;
  }

 private:
  void write_line(std::string_view style, double x, std::string_view text) {
    y_ += kLineHeight;
    body_ += fmt::format("<text class=\"{}\" x=\"{}\" y=\"{}\">{}</text>\n", style, x, y_, to_markup(text));
  }

  void write_head() {
    y_ += 4;
    write_line("title", kMargin, map_.title);
    write_line(map_.decision == host::Decision::rejected ? "verdict rejected" : "verdict", kMargin, verdict_text(map_));
    write_line("note", kMargin, count_text(map_));
    for (const std::string &notice : map_.notices) {
      for (const std::string &line : wrapped(notice, kMessageColumns)) write_line("note", kMargin, line);
    }
  }

  void write_conflicts() {
    for (std::size_t i = 0; i < map_.conflicts.size(); ++i) {
      const report::Finding &conflict = map_.conflicts[i].finding;
      const std::string_view style = conflict.is_warning ? "flag warned" : "flag rejected";
      bool is_first = true;
      for (const std::string &line : wrapped(line_of(conflict), kMessageColumns)) {
        write_line("note", kMargin + 40, line);
        if (!is_first) continue;
        body_ +=
            fmt::format("<text class=\"{}\" x=\"{}\" y=\"{}\">{}</text>\n", style, kMargin, y_, conflict_sign(map_, i));
        is_first = false;
      }
    }
  }

  void write_legend() {
    double x = kMargin;
    y_ += kLineHeight + 4;
    const auto write = [&](double sample, std::string_view meaning, const auto &markup) {
      const double width = sample + 6 + static_cast<double>(meaning.size()) * kTextWidth + 12;
      if (x + width > width_) {
        x = kMargin;
        y_ += kLineHeight + 2;
      }
      body_ += markup(x, y_ - 12);
      body_ += fmt::format("<text class=\"note\" x=\"{:.2f}\" y=\"{}\">{}</text>\n", x + sample + 6, y_, meaning);
      x += width;
    };
    for (const LegendEntry &entry : legend()) {
      write(sample_width(entry), entry.meaning,
            [&entry](double left, double top) { return sample_markup(entry, left, top); });
    }
    write(kFreeSample, "free VLANs", [](double left, double top) {
      return fmt::format(R"(<path class="free" d="M{:.2f} {}h{}v3h-{}z"/>)", left, top + 10, kFreeSample, kFreeSample);
    });
    y_ += 10;
  }

  static std::size_t lanes_for(std::size_t ports) { return ports > kFewPorts ? kLanesOfMany : kLanesOfFew; }

  void write_rows(const std::vector<std::size_t> &ports, std::size_t most_lanes) {
    const double top = y_;
    const std::string before = std::exchange(body_, "");
    for (std::size_t i = 0; i < ports.size(); ++i) {
      if (i % kRowsToAScale == 0) write_scale();
      write_row(ports[i], most_lanes);
    }
    body_ = before + grid_markup(top) + body_;
    write_scale();
  }

  void write_scale() {
    body_ += fmt::format("<g class=\"scale\" transform=\"translate({} {})\" aria-hidden=\"true\">{}</g>\n", plot_left_,
                         y_, scale_markup());
    y_ += kScaleHeight;
  }

  void write_row(std::size_t index, std::size_t most_lanes) {
    const Port &port = map_.ports[index];
    const Row row = lay_out(map_, port, most_lanes);
    body_ += fmt::format("<g class=\"row\" role=\"group\" transform=\"translate(0 {})\"><title>{}</title>\n", y_,
                         to_markup(row_text(port)));
    body_ += fmt::format("<path class=\"line\" d=\"M{} {}H{:.2f}\"/>\n", kMargin, row.height, width_ - kMargin);
    write_port(port);
    body_ += fmt::format("<g transform=\"translate({} 0)\">{}{}\n", plot_left_,
                         overlaps_markup(map_, index, row.height), free_markup(port, row.height));
    for (const Bar &bar : row.bars) body_ += bar_markup(map_, port, bar) + "\n";
    body_ += "</g></g>\n";
    y_ += row.height;
  }

  std::string row_text(const Port &port) const {
    std::string text = fmt::format("{}: {} claim{}", port.name, port.claims.size(), port.claims.size() == 1 ? "" : "s");
    if (!port.in_profile) text += ", not in the element's profile";
    if (!port.conflicts.empty()) text += "; " + conflicts_text(map_, port.conflicts);
    return text + "; free VLANs: " + free_text(port);
  }

  /// The name in a picture of its own, which clips it.
  void write_port(const Port &port) {
    body_ += fmt::format(R"(<svg x="{}" width="{}" height="22"><text class="port{}" x="4" y="15">{}</text></svg>)",
                         kMargin, name_width_, port.in_profile ? "" : " unknown", to_markup(port.name));
    if (port.conflicts.empty()) return;
    body_ += fmt::format("<text class=\"flag\" x=\"{}\" y=\"15\">{}</text>\n", kMargin + name_width_ + 4,
                         flags_of(map_, port));
  }

  /// The scale's lines from the first row to the last.
  std::string grid_markup(double top) const {
    std::string path = fmt::format("M0 {0}V{1}M{2} {0}V{1}", top, y_, kUntaggedWidth);
    for (const std::uint32_t vlan : scale_ticks()) path += fmt::format("M{:.2f} {}V{}", left_of(vlan), top, y_);
    return fmt::format("<path class=\"line\" transform=\"translate({} 0)\" d=\"{}\"/>\n", plot_left_, path);
  }

  std::string start() const {
    return fmt::format(
        "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
        "<svg xmlns=\"http://www.w3.org/2000/svg\" class=\"map\" role=\"graphics-document document\" "
        "aria-labelledby=\"map-title\" aria-describedby=\"map-description\" width=\"{0:.0f}\" height=\"{1:.0f}\" "
        "viewBox=\"0 0 {0:.0f} {1:.0f}\">\n"
        "<title id=\"map-title\">{2}</title>\n<desc id=\"map-description\">{3}</desc>\n"
        "<style>{4}</style>\n{5}\n<rect class=\"paper\" width=\"100%\" height=\"100%\"/>\n",
        width_, y_ + kMargin, to_markup(map_.title), to_markup(description_of(map_)), map_style.text,
        definitions_markup());
  }

  const Map &map_;
  double name_width_;
  double plot_left_;
  double width_;
  std::string body_;
  double y_ = kMargin;
};

}  // namespace

std::string to_svg(const Map &map) { return Picture(map).draw(); }

std::string picture_sheets(const Map &map, const std::vector<std::size_t> &ports) {
  return Picture(map).draw_sheets(ports);
}

}  // namespace vlan_map
