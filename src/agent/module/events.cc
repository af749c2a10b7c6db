#include "agent/module/events.h"

#include <array>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "agent/module/findings_data.h"

namespace agent {
namespace {

constexpr std::array<const char *, 4> kDecisions{"accepted", "accepted-with-warnings", "rejected", "undecided"};

}  // namespace

void log_answer(const ses_cb_t *session, std::string_view operation, const Answer &answer) {
  nlohmann::json line{{"event", operation},
                      {"decision", kDecisions.at(static_cast<std::size_t>(answer.decision))},
                      {"session", session == nullptr ? 0 : session->sid},
                      {"user", session == nullptr ? "" : from_xml(session->username)}};
  if (!answer.failure.empty()) line["failure"] = answer.failure;
  for (const Finding &finding : answer.findings) {
    line["findings"].push_back({{"rule", finding.rule}, {"path", finding.path}, {"message", finding.message}});
  }
  const std::string text = line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
  std::fwrite(text.data(), 1, text.size(), stderr);
  std::fflush(stderr);
}

void notify_warnings(const ses_cb_t *session, const Answer &answer) {
  obj_template_t *event = ncx_find_object(own_module(), to_xml("commit-accepted-with-warnings"));
  agt_not_msg_t *message = event == nullptr ? nullptr : agt_not_new_notification(event);
  if (message == nullptr) return;
  if (session != nullptr) {
    if (val_value_t *id = make_leaf(event, "session-id", std::to_string(session->sid))) {
      agt_not_add_to_payload(message, id);
    }
  }
  val_value_t *holder = val_new_value();
  if (holder == nullptr) return;
  val_init_from_template(holder, event);
  add_findings(holder, answer.findings);
  while (val_value_t *finding = val_get_first_child(holder)) {
    val_remove_child(finding);
    agt_not_add_to_payload(message, finding);
  }
  val_free_value(holder);
  agt_not_queue_notification(message);
}

}  // namespace agent
