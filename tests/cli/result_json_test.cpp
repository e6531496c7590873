#include "cli/result_json.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

namespace {

TEST(ResultJson, KeepsPrecisionAndSaysWhatIsUnknown) {
  report::Member member;
  member.path = "/a \"b\"\xff.wav";
  member.offsetSeconds = 12.345678901234567;
  member.errorSeconds = 0.25e-3;
  report::Outcome outcome;
  outcome.status = "first";
  outcome.groups = {{"Group 1", {member}}};
  outcome.unsynced = {{"y.wav", "why", "do that"}};
  outcome.ignored = {{"x.txt", "why", "what"}};
  const auto json = nlohmann::json::parse(cli::resultJson(outcome));
  const auto& read = json["groups"][0]["members"][0];
  EXPECT_EQ(read["path"], "/a \"b\"\xef\xbf\xbd.wav");
  EXPECT_EQ(read["offset_seconds"].get<double>(), member.offsetSeconds);
  EXPECT_EQ(read["error_ms"], 0.25);
  EXPECT_TRUE(read["drift_ppm"].is_null());
  EXPECT_TRUE(read["frame_rate"].is_null());
  EXPECT_EQ(json["ignored"][0]["reason"], "why");
  EXPECT_EQ(json["status"], "partly");
  EXPECT_EQ(json["unsynced"][0]["remedy"], "do that");
  EXPECT_TRUE(json["outputs"].is_array());
}

}  // namespace
