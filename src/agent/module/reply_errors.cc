#include "agent/module/reply_errors.h"

#include <set>

#include "agent/module/candidate_node.h"
#include "agent/module/findings_data.h"

namespace agent {
namespace {

/// An rpc-error does not own its app-tag: each that was used stays.
const xmlChar *lasting(const std::string &text) {
  static std::set<std::string> texts;
  return to_xml(*texts.insert(text).first);
}

void set_path(rpc_err_rec_t *error, xml_msg_hdr_t *header, val_value_t *root, const std::string &path) {
  const val_value_t *node = root == nullptr ? nullptr : find_node(root, path);
  if (node != nullptr) val_gen_instance_id(header, node, NCX_IFMT_XPATH1, &error->error_path);
}

void add_info(rpc_err_rec_t *error, const std::vector<Finding> &findings) {
  obj_template_t *container = own_module() == nullptr ? nullptr : ncx_find_object(own_module(), to_xml("verdict"));
  rpc_err_info_t *info = container == nullptr ? nullptr : rpc_err_new_info();
  val_value_t *verdict = info == nullptr ? nullptr : val_new_value();
  if (verdict == nullptr) {
    if (info != nullptr) rpc_err_free_info(info);
    return;
  }
  val_init_from_template(verdict, container);
  add_findings(verdict, findings);
  info->name_nsid = obj_get_nsid(container);
  info->name = obj_get_name(container);
  info->val_btype = NCX_BT_CONTAINER;
  info->v.cpxval = verdict;
  dlq_enque(info, &error->error_info);
}

rpc_err_rec_t *new_error(rpc_err_sev_t severity, const std::string &message) {
  rpc_err_rec_t *error = rpc_err_new_record();
  if (error == nullptr) return nullptr;
  error->error_res = ERR_NCX_OPERATION_FAILED;
  error->error_id = RPC_ERR_OPERATION_FAILED;
  error->error_type = NCX_LAYER_OPERATION;
  error->error_severity = severity;
  error->error_tag = rpc_err_get_errtag(RPC_ERR_OPERATION_FAILED);
  error->error_message = xml_strdup(to_xml(message));
  return error;
}

}  // namespace

void add_error(xml_msg_hdr_t *header, val_value_t *root, const Answer &answer) {
  const bool is_warning = answer.decision == Decision::accepted_with_warnings;
  const bool is_undecided = answer.decision == Decision::undecided;
  const std::string &message = is_undecided ? answer.failure : answer.findings.front().message;
  rpc_err_rec_t *error = new_error(is_warning ? RPC_ERR_SEV_WARNING : RPC_ERR_SEV_ERROR, message);
  if (error == nullptr) return;
  if (is_undecided) {
    error->error_app_tag = lasting(answer.kind == Failure::internal_fault ? "internal-fault" : "undecided");
  } else {
    const Finding &finding = answer.findings.front();
    error->error_type = NCX_LAYER_CONTENT;
    if (!finding.rule.empty()) error->error_app_tag = lasting(finding.rule);
    set_path(error, header, root, finding.path);
    add_info(error, answer.findings);
  }
  dlq_enque(error, &header->errQ);
}

}  // namespace agent
