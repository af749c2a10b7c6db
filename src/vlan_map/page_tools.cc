#include "vlan_map/page_tools.h"

#include <fmt/format.h>

#include <string_view>

#include "vlan_map/bars.h"

namespace vlan_map {
namespace {

constexpr std::string_view kFilters =
    "<div class=\"tools\" role=\"search\">\n"
    "<label>VPN <input id=\"vpn-filter\" type=\"search\" autocomplete=\"off\" placeholder=\"group or VPN\"></label>\n"
    "<label>VLAN <input id=\"vlan-filter\" type=\"search\" autocomplete=\"off\" placeholder=\"210 or 200-300\"></label>\n"
    "<label>Port <input id=\"port-filter\" type=\"search\" autocomplete=\"off\"></label>\n"
    "<label><input id=\"conflicts-only\" type=\"checkbox\"> only conflicts</label>\n"
    "<label><input id=\"changes-only\" type=\"checkbox\"> only changes</label>\n"
    "<output id=\"count\" for=\"vpn-filter vlan-filter port-filter conflicts-only changes-only\"></output>\n</div>\n";

constexpr std::string_view kZoom =
    "<div class=\"tools\" role=\"group\" aria-label=\"Zoom\">\n"
    "<button id=\"zoom-out\" type=\"button\" aria-label=\"Zoom out\">&minus;</button>\n"
    "<output id=\"in-view\"></output>\n"
    "<button id=\"zoom-in\" type=\"button\" aria-label=\"Zoom in\">+</button>\n"
    "<button id=\"zoom-all\" type=\"button\">All VLANs</button>\n"
    "<button id=\"previous-conflict\" type=\"button\">Previous conflict</button>\n"
    "<button id=\"next-conflict\" type=\"button\">Next conflict</button>\n"
    "<button id=\"show-legend\" type=\"button\" aria-expanded=\"true\" aria-controls=\"legend\">Legend</button>\n"
    "<button id=\"show-keys\" type=\"button\" aria-expanded=\"false\" aria-controls=\"keys\">Keys</button>\n</div>\n";

constexpr std::string_view kKeys =
    "<dl id=\"keys\" hidden>\n"
    "<dt>Left, Right</dt><dd>claim to claim</dd><dt>Up, Down</dt><dd>port to port</dd>"
    "<dt>Home, End</dt><dd>ends of a port</dd><dt>Enter</dt><dd>zoom to the claim</dd>"
    "<dt>P</dt><dd>zoom to the port</dd><dt>V</dt><dd>zoom to the VLAN, on all ports</dd>"
    "<dt>C, Shift+C</dt><dd>next, previous conflict</dd><dt>+, &minus;, 0</dt><dd>zoom in, out, all VLANs</dd>"
    "<dt>/</dt><dd>filter by VPN</dd><dt>Escape</dt><dd>back to the list of conflicts</dd>"
    "<dt>Pointer</dt><dd>drag to move, Ctrl+wheel or two fingers to zoom, double click to zoom to a claim</dd>\n</dl>\n";

constexpr std::string_view kStage =
    "<div class=\"stage\">\n"
    "<div id=\"map\" tabindex=\"0\" role=\"application\" aria-label=\"VLANs by port\" aria-describedby=\"keys\" "
    "aria-activedescendant=\"current\"><div id=\"sheet\"><canvas id=\"canvas\" aria-hidden=\"true\"></canvas></div>"
    "<div id=\"current\" class=\"spoken\" role=\"img\" aria-label=\"no claim\"></div></div>\n"
    "<aside id=\"detail\" aria-label=\"Details\" tabindex=\"-1\"></aside>\n</div>\n";

std::string legend_markup() {
  std::string markup = "<ul class=\"legend\" id=\"legend\" aria-label=\"Legend\">\n";
  for (const LegendEntry &entry : legend()) {
    constexpr double margin = 2;
    markup += fmt::format("<li><svg width=\"{}\" height=\"{}\" aria-hidden=\"true\">{}</svg> {}</li>\n",
                          sample_width(entry) + 2 * margin, kBarHeight + 2 * margin,
                          sample_markup(entry, margin, margin), entry.meaning);
  }
  markup +=
      "<li class=\"needle-sample vpws\"><svg width=\"6\" height=\"20\" aria-hidden=\"true\"><path class=\"bar\" "
      "d=\"M2 2h2v16h-2z\"/></svg> either, among many</li>\n";
  return markup +
         "<li><svg width=\"28\" height=\"20\" aria-hidden=\"true\"><path class=\"free\" d=\"M2 10h24v3h-24z\"/></svg> free "
         "VLANs</li>\n</ul>\n";
}

}  // namespace

std::string tools_markup() {
  std::string markup = "<main id=\"live\" hidden>\n";
  markup += kFilters;
  markup += kZoom;
  markup += kKeys;
  markup += legend_markup();
  markup += kStage;
  markup += "</main>\n";
  return markup;
}

}  // namespace vlan_map
