#ifndef HOST_SEAM_SEAM_STATE_H
#define HOST_SEAM_SEAM_STATE_H

#include <deque>
#include <list>
#include <set>
#include <string>

#include "host/seam/cursor_pool.h"
#include "host/seam/lookup_hints.h"

/// A trace category; the trace layer's callers only hold its address.
struct zlog_category_s {
  std::string name;
};

namespace host {

/// What the platform's functions keep between calls for one element.
struct SessionState {
  CursorPool cursors;
  LookupHints hints;           ///< of the trees and changes of the transaction that is served
  std::set<int> cdb_sockets;   ///< of the open CDB read sessions
  int next_cdb_socket = 1000;  ///< never used twice, so that a socket of an ended session is unknown
  std::list<zlog_category_s> trace_categories;
  std::deque<std::string> error_texts;  ///< what transaction contexts point at, until another is served
};

}  // namespace host

#endif
