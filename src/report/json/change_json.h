#ifndef REPORT_JSON_CHANGE_JSON_H
#define REPORT_JSON_CHANGE_JSON_H

#include <nlohmann/json_fwd.hpp>

#include "report/change_list.h"

namespace report {

nlohmann::ordered_json change_json(const ListedChange &change);

}  // namespace report

#endif
