#include "vlan_map/html.h"

#include <fmt/format.h>

#include <algorithm>

#include "report/escape/markup.h"
#include "vlan_map/assets.h"
#include "vlan_map/bars.h"
#include "vlan_map/labels.h"
#include "vlan_map/layout.h"
#include "vlan_map/page_tables.h"

namespace vlan_map {
namespace {

using report::to_markup;

constexpr double kRulerHeight = 18;

std::string head_markup(const Map &map) {
  return fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<meta http-equiv=\"Content-Security-Policy\" content=\"default-src 'none'; style-src 'sha256-{}' 'sha256-{}'; "
      "script-src 'sha256-{}'; base-uri 'none'; form-action 'none'\">\n"
      "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n<title>{}</title>\n"
      "<style>{}</style>\n<style>{}</style>\n</head>\n",
      map_style.sha256, page_style.sha256, page_script.sha256, to_markup(map.title), map_style.text, page_style.text);
}

std::string notices_markup(const Map &map) {
  std::string markup;
  for (const std::string &notice : map.notices)
    markup += fmt::format("<p class=\"notice\">{}.</p>\n", to_markup(notice));
  return markup;
}

std::string summary_markup(const Map &map) {
  return fmt::format(
      "<header>\n<h1>{}</h1>\n<p class=\"summary{}\">{}</p>\n<p>{}. <a href=\"#all-claims\">Table of all claims</a></p>\n{}"
      "</header>\n",
      to_markup(map.title), map.decision == host::Decision::rejected ? " refused" : "", verdict_text(map),
      count_text(map), notices_markup(map));
}

std::string conflicts_markup(const Map &map, const ClaimNumbers &numbers) {
  if (map.conflicts.empty()) return "";
  return "<section class=\"conflicts\" aria-labelledby=\"conflicts-heading\">\n"
         "<h2 id=\"conflicts-heading\">Conflicts</h2>\n<div class=\"scrolled\" tabindex=\"0\" role=\"region\" "
         "aria-labelledby=\"conflicts-heading\">\n" +
         conflict_table(map, numbers) + "</div>\n</section>\n";
}

std::string_view tools_markup() {
  return "<div class=\"tools\" role=\"search\">\n"
         "<label>Search VPN <input id=\"vpn-search\" type=\"search\" autocomplete=\"off\" "
         "placeholder=\"group or VPN, Enter: next\"></label> <output id=\"vpn-count\" for=\"vpn-search\"></output>\n"
         "<label>Filter port <input id=\"port-filter\" type=\"search\" autocomplete=\"off\"></label> "
         "<output id=\"port-count\" for=\"port-filter\"></output>\n"
         "<label><input id=\"busy-only\" type=\"checkbox\"> only ports that change or conflict</label>\n"
         "<span role=\"group\" aria-label=\"Zoom of the VLAN scale\">Zoom "
         "<button id=\"zoom-out\" type=\"button\" aria-label=\"Zoom out\">&minus;</button> "
         "<output id=\"zoom\">1&times;</output> "
         "<button id=\"zoom-in\" type=\"button\" aria-label=\"Zoom in\">+</button></span>\n</div>\n";
}

std::string legend_markup() {
  std::string markup = "<ul class=\"legend\" aria-label=\"Legend\">\n";
  for (const LegendEntry &entry : legend()) {
    markup += fmt::format("<li>{} {}</li>\n", sample_markup(entry, ""), entry.meaning);
  }
  return markup + "</ul>\n";
}

std::string name_markup(const Map &map, const Port &port) {
  std::string markup = fmt::format("<div class=\"name\"><span class=\"port{}\">{}</span>",
                                   port.in_profile ? "" : " unknown", to_markup(port.name));
  if (!port.in_profile) markup += " <span class=\"remark\">not in the profile</span>";
  for (const std::size_t conflict : port.conflicts) {
    markup += fmt::format(" <a class=\"badge\" href=\"#conflict-{}\" title=\"{}\">{}</a>", conflict + 1,
                          to_markup(conflicts_text(map, {conflict})), conflict_sign(map, conflict));
  }
  return markup + "</div>";
}

bool is_busy(const Port &port) {
  const auto is_changed = [](const Claim &claim) { return claim.status != ChangeStatus::unchanged; };
  return !port.conflicts.empty() || std::any_of(port.claims.begin(), port.claims.end(), is_changed);
}

std::string page_bar(const Map &map, const Port &port, const Bar &bar, std::size_t number) {
  const std::string attributes = fmt::format(
      R"( id="{}-{}" tabindex="-1" data-claim="{}" data-first="{}" data-last="{}" data-least="{:.2f}" aria-label="{}")",
      bar.is_previous ? "former" : "mark", number, number, bar.vlans.first, bar.vlans.last, bar.least_width,
      to_markup(bar_sentence(map, port, bar)));
  return bar_markup(map, port, bar, attributes, "");
}

std::string row_markup(const Map &map, const ClaimNumbers &numbers, std::size_t index) {
  const Port &port = map.ports[index];
  const Row row = lay_out(map, port);
  std::string markup = fmt::format("<li class=\"row\" id=\"port-{}\" tabindex=\"-1\"{}>{}\n", index,
                                   is_busy(port) ? " data-busy" : "", name_markup(map, port));
  markup += fmt::format(
      "<svg class=\"lanes\" role=\"group\" aria-label=\"{3}\" width=\"{0:.2f}\" height=\"{1}\" "
      "viewBox=\"0 0 {0:.2f} {1}\">{2}\n",
      plot_width(), row.height, overlaps_markup(map, index, row.height), port.claims.empty() ? "no claims" : "claims");
  for (const Bar &bar : row.bars) markup += page_bar(map, port, bar, numbers.of({index, bar.claim})) + "\n";
  return markup + "</svg></li>\n";
}

std::string map_markup(const Map &map, const ClaimNumbers &numbers) {
  std::string markup = fmt::format(
      "<div class=\"map\" id=\"map\" role=\"region\" aria-label=\"VLANs by port; arrow keys go from claim to claim\" "
      "data-untagged=\"{0}\" data-vlan=\"{1}\" data-last=\"{2}\">\n"
      "<div class=\"scale\"><div class=\"name\">Port</div><svg id=\"scale\" aria-hidden=\"true\" width=\"{3:.2f}\" "
      "height=\"{4}\" viewBox=\"0 0 {3:.2f} {4}\">{5}{6}</svg></div>\n<ul class=\"rows\">\n",
      kUntaggedWidth, kVlanWidth, kLastVlan, plot_width(), kRulerHeight, definitions_markup(), scale_markup());
  for (std::size_t i = 0; i < map.ports.size(); ++i) markup += row_markup(map, numbers, i);
  return markup + "</ul>\n</div>\n<div id=\"detail\" role=\"tooltip\" hidden></div>\n";
}

}  // namespace

std::string to_html(const Map &map) {
  const ClaimNumbers numbers(map);
  std::string page = head_markup(map);
  page += "<body>\n" + summary_markup(map) + conflicts_markup(map, numbers);
  page += "<main>\n";
  page += tools_markup();
  page += legend_markup() + map_markup(map, numbers);
  page += "</main>\n<section class=\"claims\" aria-labelledby=\"all-claims\">\n<h2 id=\"all-claims\">All claims</h2>\n";
  page += claim_table(map, numbers) + "</section>\n";
  page += fmt::format("<script>{}</script>\n</body>\n</html>\n", page_script.text);
  return page;
}

}  // namespace vlan_map
