// What `render` sends, and how it shows the blocks.
#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using nlohmann::json;

TEST(Render, SendsItsOptions) {
  const std::string ltm = WriteFile(
      "ltm.json", R"({"r":[1,2,3,4],"g":[0,0,1,0,0,0,0,0,0,0,0.5],"b":[0,0,0,1],"enable":false})");
  const std::string numbers = "1,0,-0.5,0,0,1,0,0,0,0,1,0,0.25,0,0,1";
  const struct {
    std::string arguments;
    std::string request;
  } cases[] = {
      {"--dimming -0.5", "set 2055 len 8: -0.5\n"},
      {"--color-transform " + numbers, "set 5 len 68: 1 0 -0.5 0 0 1 0 0 0 0 1 0 0.25 0 0 1\n"},
      {"--ltm " + ltm,
       "set 13 len 280: 0 1 2 3 4 0 0 0 0 0 0 0 0 0 1 0 0 0 0 0 0 0 0.5 0 0 0 1 0 0 0 0 0 0 0\n"},
      {"--igc-entries 33", "set 8 len 40: 33 12\n"},
      {"--igc-bits 10", "set 8 len 40: 257 10\n"},
      {"--gc-entries 1024 --gc-bits 8", "set 7 len 40: 1024 8\n"},
      {"--gamut-entries 9", "set 6 len 40: 9 12\n"},
      {"--calibration", "set 12 len 0:\n"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunWithFake("render 0 " + test.arguments);
    EXPECT_EQ(run.status, 0);
    const std::string calls = run.err.substr(0, run.err.find("DeInit"));
    EXPECT_EQ(calls, test.request + "op 0 len 2912/32 mode native 0:0:0 assets 0\n");
  }
}

TEST(Render, ShowsEveryBlock) {
  const ZelctlRun run = RunWithFake("render srgb");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.out, R"(Mode 1 srgb (1:2:3)

BLOCK              ON   HASH      CONTENTS
PostBlendGamut     yes  aac7bca5  lut_data 117928 B
PostBlendIGC       yes  68d54449  c0 6: 0..5, c1 7 8, c2 empty, aux_flag 1, aux_value 9
PostBlendGC        no   f8ea92a1  c0 empty, c1 empty, c2 empty, aux_flag 0, aux_value 0
PostBlendPCC       yes  90252e78  rows r g b
PostBlendPa        no   6b80d019  i_params 1 -2 3 4, f_params 0.5 0.0 0.0 -1.0, tail_params 44 B, tail_table 9224 B
PostBlendDither    no   1c72c71e  params 88 B
PostBlendPaDither  yes  456978e6  words 20: 5..0
PostBlendHdrBlob   -    bb80c29f  blob 3 B
PostBlendGameBlob  yes  ee370321  blob 1 B
PostBlendDE        no   9790a8a6  params 40 B

PCC AFTER  ON   ROW      1/255         R         G          B  t4  t5  t6  t7  t8  t9      t10
srgb       yes  r    20.000000  1.000000         0          0   0   0   0   0   0   0  1.0e-07
                g            0         0  0.333333          0   0   0   0   0   0   0        0
                b            0         0         0  -0.250000   0   0   0   0   0   0        0
)");
}

TEST(Render, JsonHoldsEveryField) {
  const json blocks = json::parse(RunWithFake("render 1 --json").out).at("blocks");
  ASSERT_EQ(blocks.size(), 10);
  const struct {
    const char* pointer;
    const char* value;
  } cases[] = {
      {"/1/c0", "[0,1,2,3,4,5]"},
      {"/1/aux_value", "9"},
      {"/2/enable", "false"},
      {"/3/rows/r", "[20,1,0,0,0,0,0,0,0,0,1e-7]"},
      {"/3/rows/g/2", "0.3333333333333333"},
      {"/4/i_params", "[1,-2,3,4]"},
      {"/4/f_params", "[0.5,0,0,-1]"},
      {"/4/sub_params/2/triple2", "[0,77,0]"},
      {"/6/words/0", "5"},
      {"/7", R"({"name":"PostBlendHdrBlob","bytes":32,"blob":"6800ff"})"},
      {"/8/blob", "\"67\""},
  };
  for (const auto& test : cases) {
    EXPECT_EQ(blocks.at(json::json_pointer(test.pointer)), json::parse(test.value)) << test.pointer;
  }
  const auto hex = [&blocks](size_t index, const char* field) {
    return blocks[index][field].get<std::string>();
  };
  EXPECT_EQ(hex(0, "lut_data"), "ab" + std::string(2 * 117927, '0'));
  EXPECT_EQ(hex(4, "tail_table"), std::string(2 * 9223, '0') + "fe");
  EXPECT_EQ(hex(5, "params"), "0120" + std::string(2 * 86, '0'));
  EXPECT_EQ(hex(9, "params"), "03" + std::string(2 * 39, '0'));
}

// The fake halves red's factor whenever it meets a block of an earlier round.
TEST(Render, RoundsPassTheSameRecord) {
  using Labels = std::vector<std::string>;
  const struct {
    const char* arguments;
    Labels labels;
    double last_red;
  } cases[] = {
      {"", {"native"}, 1},
      {"--repeat 3", {"native #1", "native #2", "native #3"}, 0.25},
      {"--from srgb", {"srgb", "native"}, 0.5},
      {"--steps --dimming 2 --color-transform inversion",
       {"native", "+ transform", "+ dimming"},
       0.25},
  };
  for (const auto& test : cases) {
    const std::string arguments = "render native --json " + std::string(test.arguments);
    const json rounds = json::parse(RunWithFake(arguments).out).at("rounds");
    Labels labels;
    for (const json& round : rounds) labels.push_back(round["label"]);
    EXPECT_EQ(labels, test.labels);
    EXPECT_EQ(rounds.front()["pcc"]["rows"]["r"][1], 1) << "a round shows its own moment";
    EXPECT_EQ(rounds.back()["pcc"]["rows"]["r"][1], test.last_red);
  }
}

}  // namespace
