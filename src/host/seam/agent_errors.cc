// What a callback tells the agent, and what it gives back to it.

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "confd_dp.h"
#include "host/seam/agent.h"
#include "host/seam/formatted_text.h"
#include "host/seam/session_state.h"

using host::SeamFunction;

// The context points at the text, which the element keeps as long as it serves the transaction. The last text stands.
[[gnu::format(printf, 2, 3)]] void confd_trans_seterr(confd_trans_ctx *tctx, const char *fmt, ...) {
  host::HostSession *session = host::HostSession::active();
  if (session == nullptr) return;
  session->enter(SeamFunction::confd_trans_seterr);

  std::va_list arguments;
  va_start(arguments, fmt);
  std::string &text = session->state().error_texts.emplace_back(host::formatted_text(fmt, arguments));
  va_end(arguments);
  tctx->error.code = CONFD_ERR;
  tctx->error.str = text.data();
}

int confd_data_set_timeout(confd_trans_ctx * /*tctx*/, int timeout_secs) {
  host::HostSession *session = host::enter_agent(SeamFunction::confd_data_set_timeout);
  if (session == nullptr) return CONFD_ERR;
  session->statistics.timeouts.push_back(timeout_secs);
  return CONFD_OK;
}

// A text that the element did not hand out does not come back here: a caller that frees a cursor's key, or a value
// twice, damages its memory here as it does in the daemon, and a sanitizer says so.
void confd_free_value(confd_value_t *v) {
  host::HostSession *session = host::HostSession::active();
  if (session != nullptr) session->enter(SeamFunction::confd_free_value);
  if (v->type != C_BUF) return;
  std::free(v->val.buf.ptr);
  if (session != nullptr) --session->statistics.owned_values;
}
