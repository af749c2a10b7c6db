#ifndef NETCONF_REPLY_READER_H
#define NETCONF_REPLY_READER_H

#include <functional>
#include <string>
#include <string_view>

#include "netconf/message_reader.h"

namespace netconf {

/// What a reply to a request that was carried out holds.
enum class Content { ok, data };

/// Reads the next message, gives `sink` its bytes as they come, and makes sure that it is the rpc-reply to this request
/// and holds what is expected. Throws SessionError otherwise: with the texts of its rpc-errors, where it has any that
/// are no warnings. Memory is bounded whatever the message holds.
void read_reply(MessageReader &reader, std::string_view message_id, Content expected,
                const std::function<void(std::string_view)> &sink);

}  // namespace netconf

#endif
