#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "source_dir.h"
#include "tests/support/build_under_test.h"
#include "tests/support/process.h"

namespace {

const std::string waiting =
    "cd " SOURCE_DIR "/docs/queue-example && " + vpnval_file() + " queue --running running.xml --element element.json ";

TEST(QueueCommand, prints_a_document_that_fits_its_schema) {
  const ProcessResult result = run_process("d=$(mktemp) && (" + waiting +
                                           "south.xml east.xml west.xml campus-moves.xml --format json >$d; "
                                           "/usr/bin/python3 " SOURCE_DIR "/tests/cli/fits_schema.py " SOURCE_DIR
                                           "/docs/queue.schema.json $d; cat $d); rm $d");
  const std::string fits = "1 documents fit\n";
  ASSERT_EQ(result.output.substr(0, fits.size()), fits) << result.output;
  const auto document = nlohmann::json::parse(result.output.substr(fits.size()));
  EXPECT_EQ(document["search"]["proof"], "most");
  EXPECT_EQ(document["order"].size(), 3u);
  const nlohmann::json &rejected = document["pairs"][1]["second-on-first"]["findings"][0];
  EXPECT_EQ(rejected["rule"], "access-same-dot1q");
  EXPECT_EQ(rejected["parties"][1]["file"], "east.xml");
  EXPECT_EQ(rejected["parties"][1]["line"], 12);
}

TEST(QueueCommand, ends_with_0_only_where_all_go_through) {
  EXPECT_EQ(run_process(waiting + "east.xml north.xml").status, 0);
  EXPECT_EQ(run_process(waiting + "east.xml west.xml").status, 1);
  EXPECT_EQ(run_process(waiting + "east.xml north.xml --budget 1").status, 1);
}

TEST(QueueCommand, names_what_it_cannot_read) {
  const ProcessResult missing = run_process(waiting + "east.xml there_is_none.xml 2>&1");
  EXPECT_EQ(missing.status, 66);
  EXPECT_NE(missing.output.find("there_is_none.xml"), std::string::npos) << missing.output;
  EXPECT_EQ(run_process(waiting + "- - </dev/null 2>&1").status, 64);
}

TEST(QueueCommand, takes_folders_and_whole_candidates_too) {
  const std::string examples = SOURCE_DIR "/examples/";
  const ProcessResult folders =
      run_process(waiting + examples + "access-two-vpns-one-vlan-by-edit " + examples + "access-two-vpns-two-vlans");
  EXPECT_EQ(folders.status, 1);
  EXPECT_NE(folders.output.find("1 of 2 changes go through in this order, and in no order more"), std::string::npos)
      << folders.output;
  const ProcessResult candidate =
      run_process(waiting + "--candidates " + examples + "access-two-vpns-two-vlans/candidate.xml --format markdown");
  EXPECT_EQ(candidate.status, 0);
  EXPECT_EQ(candidate.output.find("**vpnval queue: the change goes through**"), 0u) << candidate.output;
}

}  // namespace
