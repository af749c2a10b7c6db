#include <fmt/format.h>

#include <algorithm>
#include <sstream>

#include "report/escape/markup.h"
#include "report/text/explanation_text.h"
#include "vlan_map/labels.h"
#include "vlan_map/page_tables.h"

namespace vlan_map {
namespace {

using report::Finding;
using report::PartyReport;
using report::to_markup;

// A limit may be reached by hundreds of claims; the tables of the ports have them all.
constexpr std::size_t kMostParties = 12;
constexpr std::size_t kMostLinks = 6;

const report::TextStyle plain(false);

std::string and_more(std::size_t left) { return left == 0 ? "" : fmt::format("<li>and {} more</li>\n", left); }

std::string party_text(const PartyReport &party) {
  std::ostringstream text;
  report::write_party(text, party, plain);
  std::string line = text.str();
  line.pop_back();
  return to_markup(line);
}

std::string link_to(const Map &map, const ClaimNumbers &numbers, const ClaimPlace &place) {
  const Port &port = map.ports[place.port];
  return fmt::format(R"( <a class="jump" href="#claim-{}">{}: {}</a>)", numbers.of(place), to_markup(port.name),
                     text_of(port.claims[place.claim].vlans));
}

std::string links_to(const Map &map, const ClaimNumbers &numbers, const std::vector<ClaimPlace> &places) {
  std::string markup;
  const std::size_t shown = std::min(places.size(), kMostLinks);
  for (std::size_t i = 0; i < shown; ++i) markup += link_to(map, numbers, places[i]);
  return shown == places.size() ? markup : markup + fmt::format(" and {} more", places.size() - shown);
}

std::string parties_markup(const Map &map, const ClaimNumbers &numbers, const Conflict &conflict) {
  const std::vector<PartyReport> &parties = conflict.finding.parties;
  if (parties.empty()) return "";
  std::string markup = "<h4>Involved</h4>\n<ol>\n";
  const std::size_t shown = std::min(parties.size(), kMostParties);
  for (std::size_t i = 0; i < shown; ++i) {
    markup += fmt::format("<li>{}{}</li>\n", party_text(parties[i]), links_to(map, numbers, conflict.by_party[i]));
  }
  markup += and_more(parties.size() - shown) + "</ol>\n";
  const std::string at_odds = conflicts_line(conflict.finding);
  return at_odds.empty() ? markup : markup + fmt::format("<p>{}</p>\n", at_odds);
}

std::string triggers_markup(const Finding &finding) {
  if (finding.triggers.empty()) return "";
  std::string markup = "<h4>Makes the library look</h4>\n<ul>\n";
  const std::size_t shown = std::min(finding.triggers.size(), kMostParties);
  for (std::size_t i = 0; i < shown; ++i) markup += fmt::format("<li>{}</li>\n", party_text(finding.triggers[i]));
  return markup + and_more(finding.triggers.size() - shown) + "</ul>\n";
}

std::string to_do_markup(const Finding &finding) {
  if (finding.conflicts.empty()) return "";
  std::stringstream text;
  report::write_to_do(text, finding, plain);
  std::string markup = "<ul class=\"to-do\">\n";
  for (std::string line; std::getline(text, line);) {
    const std::size_t indent = line.find_first_not_of(' ');
    markup += fmt::format("<li{}>{}</li>\n", indent > 3 ? " class=\"part\"" : "", to_markup(line.substr(indent)));
  }
  return markup + "</ul>\n";
}

std::string when_text(const Finding &finding) {
  std::string text =
      finding.from_device ? "The element says it on this commit." : "It comes once the others are solved.";
  if (finding.is_preexisting) text += " The running configuration has this fault.";
  if (finding.conflicts.empty()) text += " Its claims were not looked for.";
  if (!finding.conflicts.empty() && !finding.is_minimal) text += " The search for its claims was ended early.";
  return text;
}

std::string article(const Map &map, const ClaimNumbers &numbers, std::size_t index) {
  const Conflict &conflict = map.conflicts[index];
  const Finding &finding = conflict.finding;
  const std::string_view kind = finding.is_warning ? "warning" : "rejection";
  std::string markup = fmt::format(
      "<article class=\"conflict {0}\" id=\"conflict-{1}\" tabindex=\"-1\">\n<h3><span class=\"badge\">{2}</span> {0} {1}{3}"
      "</h3>\n<p class=\"message\">{4}</p>\n<p class=\"when\">{5}</p>\n",
      kind, index + 1, conflict_sign(map, index),
      finding.rule.empty() ? "" : fmt::format(" <code>{}</code>", finding.rule), to_markup(finding.message),
      when_text(finding));
  markup += parties_markup(map, numbers, conflict) + triggers_markup(finding) + to_do_markup(finding);
  if (!finding.rule.empty())
    markup += fmt::format("<p class=\"why\">Why: <code>vpnval explain {}</code></p>\n", finding.rule);
  return markup + "</article>\n";
}

}  // namespace

std::string conflict_articles(const Map &map, const ClaimNumbers &numbers) {
  std::string markup;
  for (std::size_t i = 0; i < map.conflicts.size(); ++i) markup += article(map, numbers, i);
  return markup;
}

}  // namespace vlan_map
