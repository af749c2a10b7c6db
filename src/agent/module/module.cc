// The entry points by which the agent loads this library, and what it calls of it: before a commit, after it, and for
// the operations validate and explain.

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>

#include "agent/core/kept_file.h"
#include "agent/core/question.h"
#include "agent/module/candidate_backup.h"
#include "agent/module/datastore_files.h"
#include "agent/module/derived_state.h"
#include "agent/module/events.h"
#include "agent/module/findings_data.h"
#include "agent/module/reply_errors.h"
#include "agent/module/yuma.h"

namespace agent {
namespace {

constexpr const char *kOwn = "vpnval-agent";

std::optional<Settings> settings;

/// The agent's own edit-config, where the library is asked at edits, and the first part of its get.
agt_rpc_method_t own_edit = nullptr;
agt_rpc_method_t own_get = nullptr;

/// Its operations on the startup configuration, where there is one.
agt_rpc_method_t own_copy = nullptr;
agt_rpc_method_t own_delete = nullptr;

val_value_t *root_of(ncx_cfg_t datastore) {
  const cfg_template_t *config = cfg_get_config_id(datastore);
  return config == nullptr ? nullptr : config->root;
}

/// Files of one question, gone with the object.
class QuestionFiles {
 public:
  explicit QuestionFiles(const std::filesystem::path &work)
      : running(work / "asked-running.xml"), candidate(work / "asked-candidate.xml") {}
  ~QuestionFiles() {
    std::error_code ignored;
    std::filesystem::remove(running, ignored);
    std::filesystem::remove(candidate, ignored);
  }
  QuestionFiles(const QuestionFiles &) = delete;
  QuestionFiles &operator=(const QuestionFiles &) = delete;

  std::filesystem::path running;
  std::filesystem::path candidate;
};

Answer ask_about(val_value_t *candidate) {
  Answer answer;
  try {
    const QuestionFiles files(settings->work);
    write_datastore(root_of(NCX_CFGID_RUNNING), files.running);
    write_datastore(candidate, files.candidate);
    answer = ask(*settings, files.running, files.candidate);
  } catch (const std::exception &error) {
    answer.failure = error.what();
  }
  return answer;
}

/// What is derived from running: asked for by each derived tree of one get, so it is kept until running changes.
std::optional<std::vector<DerivedNode>> derived_from_running() {
  static cfg_transaction_id_t derived_at = 0;
  static std::optional<std::vector<DerivedNode>> derived;
  const cfg_template_t *running = cfg_get_config_id(NCX_CFGID_RUNNING);
  if (derived && derived_at == running->last_txid) return derived;
  derived.reset();
  try {
    const QuestionFiles files(settings->work);
    write_datastore(running->root, files.running);
    derived = derive(*settings, files.running);
    derived_at = running->last_txid;
  } catch (const std::exception &error) {
    std::fprintf(stderr, "%s\n", error.what());
  }
  return derived;
}

bool is_refused(const Answer &answer) {
  return answer.decision == Decision::rejected || answer.decision == Decision::undecided;
}

/// Tells the session, in the reply or by notification, and says whether the operation goes on.
status_t deliver(ses_cb_t *session, xml_msg_hdr_t *header, val_value_t *candidate, const char *operation,
                 const Answer &answer) {
  log_answer(session, operation, answer);
  if (is_refused(answer)) {
    add_error(header, candidate, answer);
    return ERR_NCX_OPERATION_FAILED;
  }
  if (answer.decision != Decision::accepted_with_warnings) return NO_ERR;
  if (settings->warnings != WarningStyle::notify) add_error(header, candidate, answer);
  if (settings->warnings != WarningStyle::error) notify_warnings(session, answer);
  return NO_ERR;
}

/// Before a commit, when the agent has found nothing wrong itself. Without a session it is the agent's own start.
status_t on_commit(ses_cb_t *session, xml_msg_hdr_t *header, val_value_t *root) {
  if (session == nullptr || header == nullptr || root_of(NCX_CFGID_RUNNING) == nullptr) return NO_ERR;
  return deliver(session, header, root, "commit", ask_about(root));
}

/// What cannot be kept fails the operation, and the log has the reason.
template <typename Keep>
status_t done_or_logged(const Keep &keep) {
  try {
    keep();
  } catch (const std::exception &error) {
    Answer failed;
    failed.failure = error.what();
    log_answer(nullptr, "keep", failed);
    return ERR_NCX_OPERATION_FAILED;
  }
  return NO_ERR;
}

/// What waits for its confirmation may be rolled back, and after a fall of the agent it is: it is not kept.
status_t on_committed() {
  if (agt_ncx_cc_active()) return NO_ERR;
  return done_or_logged([] { keep_datastore(root_of(NCX_CFGID_RUNNING), settings->running); });
}

/// The agent's own checks: what is mandatory, references, must and when. They mark what they look at, after which the
/// agent takes a candidate for unchanged and a commit of it is lost: they are given a copy.
status_t check_data_model(ses_cb_t *session, rpc_msg_t *message, const val_value_t *root) {
  val_value_t *copy = val_clone(root);
  if (copy == nullptr) return ERR_INTERNAL_MEM;
  status_t result = NO_ERR;
  agt_cfg_transaction_t *transaction =
      agt_cfg_new_transaction(NCX_CFGID_CANDIDATE, AGT_CFG_EDIT_TYPE_FULL, FALSE, TRUE, &result);
  if (transaction != nullptr) {
    result = agt_val_root_check(session, &message->mhdr, transaction, copy);
    agt_cfg_free_transaction(transaction);
  }
  val_free_value(copy);
  return result;
}

status_t validate(ses_cb_t *session, rpc_msg_t *message, val_value_t *root) {
  const status_t result = check_data_model(session, message, root);
  if (result != NO_ERR) return result;
  return deliver(session, &message->mhdr, root, "validate", ask_about(root));
}

/// The configuration that stands in the request itself, or null.
val_value_t *inline_config(rpc_msg_t *message) {
  const val_value_t *source = val_find_child(message->rpc_input, NC_MODULE, to_xml("source"));
  val_value_t *given = source == nullptr ? nullptr : val_get_first_child(source);
  return given != nullptr && from_xml(given->name) == "config" ? given : nullptr;
}

status_t on_validate(ses_cb_t *session, rpc_msg_t *message, xml_node_t *method) {
  if (val_value_t *given = inline_config(message)) return validate(session, message, given);
  cfg_template_t *config = nullptr;
  const status_t result = agt_get_cfg_from_parm(to_xml("source"), message, method, &config);
  if (result != NO_ERR) return result;
  return config->root == nullptr ? NO_ERR : validate(session, message, config->root);
}

status_t on_explain(ses_cb_t *session, rpc_msg_t *message, xml_node_t *) {
  val_value_t *root = root_of(NCX_CFGID_CANDIDATE);
  const Answer answer = ask_about(root);
  log_answer(session, "explain", answer);
  if (answer.decision == Decision::undecided) {
    add_error(&message->mhdr, root, answer);
    return ERR_NCX_OPERATION_FAILED;
  }
  obj_template_t *output = obj_find_child(message->rpc_method, to_xml(kOwn), to_xml("output"));
  val_value_t *document = output == nullptr ? nullptr : make_leaf(output, "document", answer.document);
  if (document == nullptr) return ERR_INTERNAL_MEM;
  message->rpc_data_type = RPC_DATA_YANG;
  dlq_enque(document, &message->rpc_dataQ);
  return NO_ERR;
}

/// The agent's edit, then the question; a refused edit leaves the candidate as it was. Warnings are told when the
/// change is committed.
status_t on_edit(ses_cb_t *session, rpc_msg_t *message, xml_node_t *method) {
  CandidateBackup backup;
  if (!backup.is_complete()) return ERR_INTERNAL_MEM;
  const status_t result = own_edit(session, message, method);
  if (result != NO_ERR) return result;
  val_value_t *root = root_of(NCX_CFGID_CANDIDATE);
  const Answer answer = ask_about(root);
  log_answer(session, "edit-config", answer);
  if (!is_refused(answer)) return NO_ERR;
  add_error(&message->mhdr, root, answer);
  backup.restore();
  return ERR_NCX_OPERATION_FAILED;
}

/// Running may have changed since the last one, also by a rollback, of which nobody is told.
status_t on_get(ses_cb_t *session, rpc_msg_t *message, xml_node_t *method) {
  if (val_value_t *running = root_of(NCX_CFGID_RUNNING)) forget_derived_state(running);
  return own_get == nullptr ? NO_ERR : own_get(session, message, method);
}

/// The agent has its startup configuration in a file, which it does not write at once.
status_t keep_startup(status_t done) {
  if (done != NO_ERR) return done;
  return done_or_logged([] { keep_copy(settings->startup, settings->kept_startup); });
}

status_t on_copy(ses_cb_t *session, rpc_msg_t *message, xml_node_t *method) {
  return keep_startup(own_copy(session, message, method));
}

status_t on_delete(ses_cb_t *session, rpc_msg_t *message, xml_node_t *method) {
  return keep_startup(own_delete(session, message, method));
}

/// Takes the place of a method of the agent's own, which is given to `own`: null where there was none.
status_t replace_method(const char *operation, agt_rpc_phase_t phase, agt_rpc_method_t method, agt_rpc_method_t &own) {
  ncx_module_t *netconf = ncx_find_module(NC_MODULE, nullptr);
  const obj_template_t *object = netconf == nullptr ? nullptr : ncx_find_object(netconf, to_xml(operation));
  if (object == nullptr || object->rpc_cbset == nullptr) return ERR_NCX_OPERATION_FAILED;
  own = static_cast<const agt_rpc_cbset_t *>(object->rpc_cbset)->acb[phase];
  return agt_rpc_register_method(NC_MODULE, to_xml(operation), phase, method);
}

status_t load_settings() {
  const char *file = std::getenv(kSettingsVariable);
  if (file == nullptr) return ERR_NCX_MISSING_PARM;
  try {
    settings = read_settings(file);
  } catch (const std::exception &error) {
    std::fprintf(stderr, "%s\n", error.what());
    return ERR_NCX_INVALID_VALUE;
  }
  return NO_ERR;
}

}  // namespace
}  // namespace agent

extern "C" {

__attribute__((visibility("default"))) status_t y_vpnval_agent_init(const xmlChar *, const xmlChar *) {
  using namespace agent;
  const status_t loaded = load_settings();
  if (loaded != NO_ERR) return loaded;
  ncx_module_t *module = nullptr;
  const agt_profile_t *profile = agt_get_profile();
  return ncxmod_load_module(to_xml(kOwn), nullptr, const_cast<dlq_hdr_t *>(&profile->agt_savedevQ), &module);
}

__attribute__((visibility("default"))) status_t y_vpnval_agent_init2() {
  using namespace agent;
  status_t result = agt_rpc_register_method(NC_MODULE, to_xml("validate"), AGT_RPC_PH_VALIDATE, on_validate);
  if (result == NO_ERR) {
    result = agt_rpc_register_method(to_xml(kOwn), to_xml("explain"), AGT_RPC_PH_INVOKE, on_explain);
  }
  if (result == NO_ERR) result = add_derived_state(derived_from_running);
  if (result == NO_ERR) result = replace_method("get", AGT_RPC_PH_VALIDATE, on_get, own_get);
  if (result == NO_ERR && settings->asks_at_edits) {
    result = replace_method("edit-config", AGT_RPC_PH_INVOKE, on_edit, own_edit);
  }
  if (result == NO_ERR && !settings->startup.empty()) {
    result = replace_method("copy-config", AGT_RPC_PH_INVOKE, on_copy, own_copy);
    if (result == NO_ERR) result = replace_method("delete-config", AGT_RPC_PH_INVOKE, on_delete, own_delete);
  }
  if (result == NO_ERR) result = agt_commit_validate_register(to_xml(kOwn), on_commit);
  if (result == NO_ERR) result = agt_commit_complete_register(to_xml(kOwn), on_committed);
  return result;
}

__attribute__((visibility("default"))) void y_vpnval_agent_cleanup() {
  using namespace agent;
  agt_commit_validate_unregister(to_xml(kOwn));
  agt_commit_complete_unregister(to_xml(kOwn));
  agt_rpc_unregister_method(to_xml(kOwn), to_xml("explain"));
}

}  // extern "C"
