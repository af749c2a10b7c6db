#ifndef REPORT_TEXT_ADVICE_TEXT_H
#define REPORT_TEXT_ADVICE_TEXT_H

#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "report/finding.h"
#include "report/text/text_style.h"

namespace report {

/// Whether there is anything to take back.
bool has_advice(const AdviceReport &advice);

/// "LEAD take back ...": in one line what is a single part, else a line a part, indented by five. The first set is told
/// in full, as are as many of the choices as are enough; longer lists of others are cut, with their number.
void write_advice(std::ostream &out, std::string_view lead, const AdviceReport &advice, const TextStyle &style);

/// "take back ..." in one line, for formats that have no room for more; long lists are cut. Empty without advice.
std::string advice_line(const AdviceReport &advice);

/// What can be changed instead, a line a repair.
void write_repairs(std::ostream &out, const std::vector<RepairReport> &repairs);

}  // namespace report

#endif
