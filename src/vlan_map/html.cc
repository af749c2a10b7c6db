#include "vlan_map/html.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <map>

#include "report/escape/markup.h"
#include "vlan_map/assets.h"
#include "vlan_map/bars.h"
#include "vlan_map/labels.h"
#include "vlan_map/page_data.h"
#include "vlan_map/page_tables.h"
#include "vlan_map/page_tools.h"
#include "vlan_map/svg.h"

namespace vlan_map {
namespace {

using report::to_markup;

// More would make the file slow to open, and no paper shows them.
constexpr std::size_t kMostPlottedClaims = 1500;
constexpr std::size_t kMostPortsOnPaper = 12;  // all of which go on paper

std::string head_markup(const Map &map) {
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'sha256-{}' 'sha256-{}'; "
      "script-src 'sha256-{}'; base-uri 'none'; form-action 'none'\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>{}</title>\n"
      "<style>{}</style>\n<style>{}</style>\n</head>\n",
      map_style.sha256, page_style.sha256, page_script.sha256, to_markup(map.title), map_style.text, page_style.text);
}

std::string summary_markup(const Map &map) {
  std::string markup = fmt::format(
      "<header>\n<h1>{}</h1>\n<p class=\"summary{}\">{}</p>\n<p>{}. <a href=\"#conflicts\">Conflicts</a> "
      "<a href=\"#ports\">Ports and claims</a></p>\n",
      to_markup(map.title), map.decision == host::Decision::rejected ? " refused" : "", verdict_text(map),
      count_text(map));
  for (const std::string &notice : map.notices) {
    markup += fmt::format("<p class=\"notice\">{}.</p>\n", to_markup(notice));
  }
  return markup + "</header>\n";
}

/// "access-same-dot1q 38, access-static-member 2. Ports with conflicts: 37 of 64."
std::string conflict_counts(const Map &map) {
  std::map<std::string, std::size_t> by_rule;
  for (const Conflict &conflict : map.conflicts) {
    ++by_rule[conflict.finding.rule.empty() ? "of no known rule" : conflict.finding.rule];
  }
  std::vector<std::string> texts;
  for (const auto &[rule, count] : by_rule) texts.push_back(fmt::format("{} {}", rule, count));
  const auto ports =
      std::count_if(map.ports.begin(), map.ports.end(), [](const Port &port) { return !port.conflicts.empty(); });
  return fmt::format("{}. Ports with conflicts: {} of {}.", fmt::join(texts, ", "), ports, map.ports.size());
}

std::string conflicts_markup(const Map &map, const ClaimNumbers &numbers) {
  std::string markup =
      "<section id=\"conflicts\" aria-labelledby=\"conflicts-heading\">\n<h2 id=\"conflicts-heading\">Conflicts</h2>\n";
  markup += fmt::format("<p>{}</p>\n", map.conflicts.empty() ? "None." : conflict_counts(map));
  if (!map.advice.empty()) markup += fmt::format("<p class=\"advice\">{}</p>\n", to_markup(map.advice));
  return markup + "<div class=\"articles\">\n" + conflict_articles(map, numbers) + "</div>\n</section>\n";
}

/// Some of the ports, in their order, as long as the claims drawn so far are not too many; the first ever is.
std::vector<std::size_t> ports_to_draw(const Map &map, bool busy, std::size_t &claims) {
  std::vector<std::size_t> ports;
  for (std::size_t i = 0; i < map.ports.size(); ++i) {
    const Port &port = map.ports[i];
    const bool is_wanted = map.ports.size() <= kMostPortsOnPaper ? busy : is_busy(port) == busy;
    if (!is_wanted || (claims != 0 && claims + port.claims.size() > kMostPlottedClaims)) continue;
    claims += port.claims.size();
    ports.push_back(i);
  }
  return ports;
}

/// Without scripts, and on paper: the ports as fixed pictures, of a large map those that matter.
std::string fixed_pictures(const Map &map) {
  std::size_t claims = 0;
  const std::vector<std::size_t> busy = ports_to_draw(map, true, claims);
  const std::vector<std::size_t> quiet = ports_to_draw(map, false, claims);
  const std::size_t drawn = busy.size() + quiet.size();
  std::string markup = "<noscript>\n" + picture_sheets(map, busy);
  if (!quiet.empty()) {
    markup += "<div class=\"quiet\">\n" + picture_sheets(map, quiet) + "</div>\n";
    markup += fmt::format("<p class=\"on-paper\">{} that the commit leaves alone {} not drawn on paper.</p>\n",
                          quiet.size() == 1 ? "A port" : fmt::format("{} ports", quiet.size()),
                          quiet.size() == 1 ? "is" : "are");
  }
  if (drawn < map.ports.size()) {
    markup += fmt::format("<p>{} of {} ports are drawn; all are listed below.</p>\n", drawn, map.ports.size());
  }
  return markup + "</noscript>\n";
}

}  // namespace

std::string to_html(const Map &map) {
  const ClaimNumbers numbers(map);
  std::string page = head_markup(map);
  page += "<body>\n<svg class=\"definitions\" width=\"0\" height=\"0\" aria-hidden=\"true\">" + definitions_markup() +
          "</svg>\n";
  page += "<div class=\"screen\">\n" + summary_markup(map) + tools_markup() + "</div>\n";
  page += conflicts_markup(map, numbers);
  page += "<figure id=\"paper\" aria-label=\"VLANs by port\">" + fixed_pictures(map) + "</figure>\n";
  page += "<section id=\"ports\" aria-labelledby=\"ports-heading\">\n<h2 id=\"ports-heading\">Ports and claims</h2>\n" +
          port_sections(map, numbers) + "</section>\n";
  page += fmt::format("<script type=\"application/json\" id=\"map-data\">{}</script>\n", page_data(map));
  page += fmt::format("<script>{}</script>\n</body>\n</html>\n", page_script.text);
  return page;
}

}  // namespace vlan_map
