#include "netconf/session.h"

#include <gtest/gtest.h>

#include "tests/netconf/scripted_transport.h"

namespace {

using netconf::Framing;
using netconf::Session;

const std::string base10 = "urn:ietf:params:netconf:base:1.0";
const std::string base11 = "urn:ietf:params:netconf:base:1.1";
const std::string candidate = "urn:ietf:params:netconf:capability:candidate:1.0";

std::string hello(const std::vector<std::string> &capabilities) {
  std::string text = R"(<hello xmlns="urn:ietf:params:xml:ns:netconf:base:1.0"><capabilities>)";
  for (const std::string &name : capabilities) text += "<capability>\n " + name + "\n</capability>";
  return text + "</capabilities><session-id>4</session-id></hello>]]>]]>";
}

std::string reply(const std::string &content, const std::string &id = "1") {
  return R"(<?xml version="1.0"?><rpc-reply xmlns="urn:ietf:params:xml:ns:netconf:base:1.0" message-id=")" + id +
         "\">" + content + "</rpc-reply>";
}

/// What the session's begin says, or "" where it begins.
std::string fault_of_hello(const std::string &stream) {
  ScriptedTransport transport(stream);
  try {
    const Session session(transport);
  } catch (const netconf::SessionError &error) {
    return error.what();
  }
  return "";
}

std::string fetched(Session &session, const std::string &datastore = "running") {
  std::string text;
  session.get_config(datastore, [&text](std::string_view bytes) { text += bytes; });
  return text;
}

/// What is said of a reply to get-config.
std::string fault_of_reply(const std::string &message) {
  ScriptedTransport transport(hello({base11}) + framed(message, Framing::chunks));
  Session session(transport);
  try {
    fetched(session);
  } catch (const netconf::SessionError &error) {
    return error.what();
  }
  return "";
}

TEST(Session, takes_the_newest_framing_that_both_know) {
  const std::string data = reply("<data><a xmlns=\"urn:a\">]]&gt;]]&gt;</a></data>");
  for (const Framing framing : {Framing::end_of_message, Framing::chunks}) {
    const bool is_new = framing == Framing::chunks;
    for (const std::size_t at_once : {std::size_t{1}, std::size_t{7}, std::string::npos}) {
      ScriptedTransport transport(
          hello({base10, is_new ? base11 : candidate}) + framed(data, framing) + framed(reply("<ok/>", "2"), framing),
          at_once);
      Session session(transport);
      EXPECT_EQ(session.has_candidate(), !is_new);
      EXPECT_EQ(fetched(session), data);
      session.close();
      EXPECT_NE(transport.written.find(is_new ? "\n#" : "</rpc>]]>]]>"), std::string::npos) << transport.written;
    }
  }
}

TEST(Session, sends_requests_in_netconfs_words) {
  ScriptedTransport transport(hello({base10}) + reply("<data/>") + "]]>]]>");
  Session session(transport);
  fetched(session, "candidate");
  const std::string declaration = R"(<?xml version="1.0" encoding="UTF-8"?>)";
  const std::string name_space = R"(xmlns="urn:ietf:params:xml:ns:netconf:base:1.0")";
  EXPECT_EQ(transport.written, declaration + "<hello " + name_space + "><capabilities><capability>" + base10 +
                                   "</capability><capability>" + base11 + "</capability></capabilities></hello>]]>]]>" +
                                   declaration + "<rpc message-id=\"1\" " + name_space +
                                   "><get-config><source><candidate/></source></get-config></rpc>]]>]]>");
}

TEST(Session, what_is_no_hello_is_told) {
  const std::string end = "]]>]]>";
  EXPECT_EQ(fault_of_hello("\nWelcome to ge-1\n$ "),
            "\"Welcome to ge-1\\x0a$\" in place of a hello; expected the capabilities of NETCONF");
  EXPECT_EQ(fault_of_hello("<html/>" + end), "element html in place of a hello; expected the capabilities of NETCONF");
  EXPECT_EQ(fault_of_hello("<hello/>" + end),
            "element hello in place of a hello; expected the capabilities of NETCONF");
  EXPECT_EQ(fault_of_hello("  " + end), "nothing in place of a hello; expected the capabilities of NETCONF");
  EXPECT_EQ(fault_of_hello("<hello xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\"/>" + end),
            "hello without capabilities in place of a hello; expected the capabilities of NETCONF");
  EXPECT_EQ(fault_of_hello("<hello>\n</hi>" + end), "hello:2: mismatched tag; expected </hello>");
  EXPECT_EQ(fault_of_hello(hello({candidate})), "hello without a base version; expected " + base10 + " or " + base11);
  EXPECT_EQ(fault_of_hello(""), "the connection ended");
  EXPECT_EQ(fault_of_hello("<" + std::string(std::size_t{1} << 24, 'x')),
            "more than 16777216 bytes in place of a hello; expected the capabilities of NETCONF");
}

TEST(Session, a_refusal_is_told_with_its_texts) {
  const std::string warning = "<rpc-error><error-severity>warning</error-severity></rpc-error>";
  EXPECT_EQ(fault_of_reply(reply(R"(<rpc-error><error-type>application</error-type><error-tag>access-denied</error-tag>
    <error-severity>error</error-severity><error-path>/a:b</error-path>
    <error-message xml:lang="en">not for
you</error-message><error-info><bad-element>x</bad-element></error-info></rpc-error>)" +
                                 warning)),
            "refused: \"not for\\x0ayou\" (access-denied, /a:b)");
  EXPECT_EQ(fault_of_reply(reply("<rpc-error><error-tag>in-use</error-tag></rpc-error>"
                                 "<rpc-error><error-tag>lock-denied</error-tag></rpc-error>")),
            "refused: in-use; lock-denied");
  EXPECT_EQ(fault_of_reply(reply(warning + "<data/>")), "");
}

TEST(Session, what_is_no_reply_is_told) {
  EXPECT_EQ(fault_of_reply(reply("<ok/>")), "rpc-reply without data");
  EXPECT_EQ(fault_of_reply(reply("<data xmlns=\"urn:a\"/>")), "rpc-reply without data");
  EXPECT_EQ(fault_of_reply(reply("<data/>", "2")), "reply to message \"2\"; expected one to message \"1\"");
  EXPECT_EQ(fault_of_reply("<notification/>"), "element notification; expected rpc-reply");
  EXPECT_EQ(fault_of_reply(reply("<data>") + "\n"), "reply:1: mismatched tag; expected </data>");
  EXPECT_EQ(fault_of_reply("<rpc-reply xmlns=\"urn:ietf:params:xml:ns:netconf:base:1.0\">\n<data>"),
            "reply:2: the text ends inside an element; expected </data>");
  EXPECT_EQ(fault_of_reply(reply("<data/>") + reply("<data/>")), "no single element in a message; expected rpc-reply");
}

}  // namespace
