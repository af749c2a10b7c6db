#include <gtest/gtest.h>

#include "maintenance/recording/decode.h"
#include "maintenance/recording/encode.h"
#include "maintenance/recording/layout.h"
#include "maintenance/recording/writer.h"
#include "maintenance/transcript/json.h"
#include "maintenance/transcript/text.h"

namespace {

using recording::AgentValue;
using recording::Call;
using recording::Function;
using recording::Handle;
using recording::HandleKind;
using recording::Recording;

AgentValue buffer(const std::string &text) { return {recording::kBuffer, 0, text}; }

std::uint64_t bits_of(std::int64_t number) { return static_cast<std::uint64_t>(number); }

Call call_with_everything() {
  Call call;
  call.function = Function::maapi_keypath_diff_iterate;
  call.arguments = {
      std::int64_t{-7},  std::uint64_t{18446744073709551615U}, 2.5,     std::string("text\0with a zero", 16),
      recording::Null{}, Handle{HandleKind::cursor, 300},      Handle{}};
  call.format = recording::Format{"/x{%s %d}", {std::string("caf\xe9"), std::int64_t{12}}};
  recording::Callback callback;
  callback.path = {{buffer("a b"), {recording::kUint32, 9, ""}}, {{recording::kXmlTag, 323130157, ""}}};
  callback.operation = 1;
  callback.new_value = AgentValue{recording::kInt32, bits_of(-1), ""};
  callback.calls.push_back({Function::confd_free_value, {buffer("owned text")}, {}, {}, {}, {}, {}, 31});
  callback.answer = 2;
  call.callbacks = {callback, callback};
  call.result = -1;
  call.error = 24;
  call.outputs = {AgentValue{recording::kIpv4, 0xc0000201, ""}, AgentValue{recording::kEnumValue, bits_of(-2), ""},
                  AgentValue{recording::kEmpty, 0, ""},         AgentValue{recording::kIpv6, 0, std::string(16, '\1')},
                  AgentValue{recording::kNoExists, 0, ""},      buffer("owned text")};
  call.duration = 123456789012;
  return call;
}

Recording full_recording() {
  Recording recording;
  recording.header.library = "0123456789abcdef";
  recording.header.recorder = "1.2.3";
  recording.header.time = 1795353145578003166;
  recording.header.point = "vpn_access_valp";
  recording.header.transaction = -42;
  recording.header.path = {{buffer("port")}, {{recording::kXmlTag, 7, ""}}};
  recording.header.value = buffer("port");
  recording.header.limits.push_back({Function::fm_init, {}, {}, {}, 0, {}, {}, 0});
  recording.header.last_extension = 1795353145578003166;
  recording.calls = {call_with_everything(), call_with_everything()};
  recording.trailer = {-3, "a message", 987654321};
  return recording;
}

TEST(RecordingFile, is_read_as_it_was_written) {
  const std::string bytes = recording::encode(full_recording());
  const Recording read = recording::decode(bytes);
  EXPECT_EQ(transcript::to_json(read), transcript::to_json(full_recording()));
  EXPECT_EQ(recording::encode(read), bytes);
}

TEST(RecordingFile, without_optional_parts_is_read_as_it_was_written) {
  const std::string bytes = recording::encode(Recording{});
  EXPECT_EQ(transcript::to_json(recording::decode(bytes)), transcript::to_json(Recording{}));
}

TEST(RecordingFile, repeats_no_text) {
  Recording once = full_recording();
  once.calls.resize(1);
  const std::size_t second = recording::encode(full_recording()).size() - recording::encode(once).size();
  EXPECT_LT(second, 150U);
}

TEST(RecordingFile, that_is_torn_anywhere_is_refused) {
  const std::string bytes = recording::encode(full_recording());
  for (std::size_t size = 0; size < bytes.size(); ++size) {
    EXPECT_THROW(recording::decode(bytes.substr(0, size)), recording::DecodeError) << size;
  }
  EXPECT_THROW(recording::decode(bytes + "x"), recording::DecodeError);
}

TEST(RecordingFile, with_a_changed_byte_is_refused) {
  const std::string bytes = recording::encode(full_recording());
  for (std::size_t i = 0; i < bytes.size(); ++i) {
    std::string changed = bytes;
    changed[i] = static_cast<char>(changed[i] ^ 0x10);
    EXPECT_THROW(recording::decode(changed), recording::DecodeError) << i;
  }
}

// Whatever a file holds, it is read or refused.
TEST(RecordingFile, with_a_digest_that_fits_and_any_content_is_read_or_refused) {
  const std::string bytes = recording::encode(full_recording());
  std::size_t refused = 0;
  for (std::size_t i = 8; i + 8 < bytes.size(); ++i) {
    for (const int byte : {0x00, 0x01, 0x06, 0x10, 0x45, 0x7f, 0x80, 0xf0, 0xf1, 0xff}) {
      std::string changed = bytes.substr(0, bytes.size() - 8);
      changed[i] = static_cast<char>(byte);
      std::uint64_t sum = recording::digest(changed);
      for (int k = 0; k < 8; ++k, sum >>= 8) changed += static_cast<char>(sum);
      try {
        transcript::recording_text(recording::decode(changed), [](std::uint32_t) { return ""; });
      } catch (const recording::DecodeError &) {
        ++refused;
      }
    }
  }
  EXPECT_GT(refused, bytes.size());
}

TEST(RecordingFile, that_does_not_fit_is_not_whole) {
  recording::Writer writer(200);
  writer.start();
  for (int i = 0; i < 100; ++i) writer.text_item("text number " + std::to_string(i));
  EXPECT_FALSE(writer.is_whole());
  EXPECT_LE(writer.bytes().size(), 200U);
  writer.start();
  EXPECT_TRUE(writer.is_whole());
}

TEST(RecordingFile, of_another_version_is_told) {
  std::string bytes = recording::encode(full_recording());
  bytes[7] = 2;
  try {
    recording::decode(bytes);
    FAIL();
  } catch (const recording::DecodeError &error) {
    EXPECT_STREQ(error.what(), "this is a recording of format 2; format 1 was expected");
  }
}

TEST(RecordingJson, is_read_as_it_was_written) {
  const Recording read = transcript::from_json(transcript::to_json(full_recording()));
  EXPECT_EQ(recording::encode(read), recording::encode(full_recording()));
}

TEST(RecordingJson, that_is_none_is_refused) {
  for (const char *document : {"", "[]", "{}", R"({"version": 2})", R"({"version": "1"})"}) {
    EXPECT_THROW(transcript::from_json(document), transcript::JsonError) << document;
  }
}

TEST(RecordingText, shows_calls_with_all_that_they_hold) {
  const std::string text =
      transcript::recording_text(full_recording(), [](std::uint32_t tag) { return tag == 7 ? "ports" : ""; });
  EXPECT_NE(text.find("path      /ports{\"port\"}\n"), std::string::npos) << text;
  EXPECT_NE(
      text.find("     1  maapi_keypath_diff_iterate(-7, 18446744073709551615, 2.5, \"text\\x00with a zero\", null, "
                "cursor 300, none, \"/x{%s %d}\", \"caf\\xe9\", 12) = -1 (confd_errno 24): 192.0.2.1, enum -2, "
                "empty, 101:101:101:101:101:101:101:101, unset, \"owned text\"  [123456 ms]\n"),
      std::string::npos)
      << text;
  EXPECT_NE(text.find("          told: /323130157{\"a b\" 9} created to -1\n"), std::string::npos) << text;
  EXPECT_NE(text.find("     2      confd_free_value(\"owned text\")  [31 ns]\n"), std::string::npos) << text;
  EXPECT_NE(text.find("verdict   accepted with a warning in 987 ms\nmessage   \"a message\"\n"), std::string::npos)
      << text;
}

}  // namespace
