#include "agent/module/events.h"

#include <cstdio>

#include "agent/core/event_lines.h"
#include "agent/module/findings_data.h"

namespace agent {

void log_answer(const ses_cb_t *session, std::string_view operation, const Answer &answer) {
  Operation told{std::string(operation), 0, ""};
  if (session != nullptr) {
    told.session = session->sid;
    told.user = from_xml(session->username);
  }
  const std::string line = answer_line(told, answer) + "\n";
  std::fwrite(line.data(), 1, line.size(), stderr);
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
