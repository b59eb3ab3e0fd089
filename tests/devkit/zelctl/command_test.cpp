// SPDX-License-Identifier: Apache-2.0

// What the subcommands print, and what they ask of a plug-in.
#include <gtest/gtest.h>

#include <array>
#include <nlohmann/json.hpp>
#include <sstream>

#include "tests/devkit/zelctl/run_zelctl.h"

namespace {

using nlohmann::json;

bool Contains(const std::string& text, const std::string& part) {
  return text.find(part) != std::string::npos;
}

// Every example, to the letter; one that begins with "..." shows the end only.
TEST(Command, PrintsWhatTheReadmeShows) {
  std::istringstream readme(ReadFile(README));
  const std::string prompt = "$ zelctl ";
  size_t examples = 0;
  for (std::string line; std::getline(readme, line);) {
    if (!line.starts_with(prompt)) continue;
    const std::string arguments = line.substr(prompt.size());
    std::string shown;
    while (std::getline(readme, line) && !line.empty() && line != "```") shown += line + '\n';
    const auto [status, out, err] = RunZelctl(arguments);
    EXPECT_EQ(err, "") << "a terminal shows it too";
    EXPECT_EQ(status, 0);
    const bool end_only = shown.starts_with("...\n");
    EXPECT_TRUE(end_only ? out.ends_with(shown.substr(4)) : out == shown) << arguments << '\n'
                                                                          << out;
    ++examples;
  }
  EXPECT_GE(examples, 5);
}

TEST(Command, PrintsJson) {
  const std::string off = WriteFile(
      "off.json", R"({"enable": false, "r": [0, 2, 0, 0], "g": [0, 0, 2, 0], "b": [0, 0, 0, 2]})");
  const struct {
    std::string arguments;
    const char* pointer;
    const char* value;
  } cases[] = {
      {"modes", "/modes/4",
       R"({"index": 4, "gamut": 4, "gamma": 3, "intent": 0, "label": "bt2020_hlg",
           "hw_assets": ["PostBlendIGC", "PostBlendGC", "PostBlendGamut"]})"},
      {"caps", "/dimming", "true"},
      {"render native", "/mode/label", "\"native\""},
      {"render vivid", "/blocks/4/i_params", "[0, 12, 0, 6]"},
      {"render vivid", "/blocks/4/sub_params/2/triple0", "[190, 210, 240]"},
      {"render vivid", "/blocks/1/c0", R"({"entries": 257, "first": 0, "last": 4095})"},
      {"render vivid", "/blocks/0/lut_data", R"({"bytes": 117928})"},
      {"render vivid", "/blocks/4/tail_table", R"({"bytes": 9224})"},
      {"render vivid", "/blocks/5/hash", "\"f391c845\""},
      {"render vivid", "/problems", "[]"},
      {"render vivid", "/blocks/8/blob", "\"47414d45007669766964\""},
      {"render srgb --tables --igc-entries 33 --igc-bits 8", "/blocks/1/c0/32", "255"},
      {"render srgb --tables --gc-entries 65 --gc-bits 9", "/blocks/2/c2/64", "511"},
      {"render native --repeat 3", "/rounds/2/label", "\"native #3\""},
      {"render native --steps --ltm " + off, "/rounds/1/label", "\"+ LTM\""},
      {"render native --steps --ltm " + off, "/rounds/1/pcc/rows/r/1", "1.0"},
  };
  for (const auto& test : cases) {
    const ZelctlRun run = RunZelctl("--json " + test.arguments);
    EXPECT_EQ(run.err, "");
    ASSERT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(json::parse(run.out).at(json::json_pointer(test.pointer)), json::parse(test.value))
        << test.arguments;
  }
}

// Of a plug-in that answers with records that zelctl can't read.
TEST(Command, PassesOneRecordFromModeToMode) {
  const ZelctlRun run = RunWithFake("render 4:5:1 --from srgb");
  EXPECT_EQ(run.status, 0);
  EXPECT_EQ(run.err,
            "op 0, srgb 3, assets 2, blocks before 0\n"
            "op 0, twin 1, assets 0, blocks before 2\n"
            "DeInit\ndestroyed\n");
  EXPECT_EQ(run.out, R"(Mode 2 twin (4:5:1)

BLOCK        ON  HASH      CONTENTS
Strange      -   bc4cb63f  unknown block
PostBlendDE  -   5373ba0a  its record is missing or of another version

PCC AFTER  ON    ROW  1/255  R  G  B  t4  t5  t6  t7  t8  t9  t10
srgb       none
twin       none
)");
}

// Two letters of one column each in two bytes, two characters of two columns in three.
TEST(Command, ColumnsAreAsWideAsTheyShow) {
  std::string panel = ReadFile(PANELS "phone-oled.json");
  panel.replace(panel.find("\"native\""), 8,
                "\"Gr\xc3\xb6\xc3\x9f"
                "e\"");
  panel.replace(panel.find("\"srgb\""), 6, "\"\xe6\x98\xbe\xe7\xa4\xba\"");
  const std::string out = RunZelctl("modes --panel " + WriteFile("wide.json", panel)).out;
  EXPECT_TRUE(Contains(out,
                       "\n   0  Gr\xc3\xb6\xc3\x9f"
                       "e              0      0       0\n"))
      << out;
  EXPECT_TRUE(Contains(out, "\n   1  \xe6\x98\xbe\xe7\xa4\xba               1 ")) << out;
}

TEST(Command, SettingsReachThePccBlock) {
  const std::string ltm = WriteFile(
      "ltm.json", R"({"r": [1, 2, 3, 4], "g": [0, 0, 1, 0, 0, 0, 0, 0, 0, 0, 0], "b": [0,0,0,1]})");
  const struct {
    std::string settings;
    // Per output channel its offset in 1/255, and the factors of red, green and blue.
    std::array<std::array<double, 4>, 3> rows;
    double tolerance = 1e-5;
  } cases[] = {
      {"--color-transform inversion", {{{255, -1}, {255, 0, -1}, {255, 0, 0, -1}}}},
      {"--color-transform grayscale",
       {{{0, 0.2126, 0.7152, 0.0722}, {0, 0.2126, 0.7152, 0.0722}, {0, 0.2126, 0.7152, 0.0722}}}},
      // Machado's figures for severity 0.6, and Fidaner's shift of what is lost.
      {"--color-transform protanomaly",
       {{{0, 1}, {0, 0.329659, 0.631894, 0.038446}, {0, 0.437627, -0.516114, 1.078486}}}},
      {"--color-transform deuteranomaly",
       {{{0, 1}, {0, 0.145596, 0.772809, 0.081594}, {0, 0.361926, -0.503288, 1.141361}}}},
      {"--color-transform tritanomaly",
       {{{0, 0.894069, -0.175912, 0.281844}, {0, 0.031202, 0.80582, 0.162978}, {0, 0, 0, 1}}}},
      // Planck's law integrated over the CIE 1931 observer, in linear sRGB, over
      // the same of 6504 K; the program uses splines of the locus.
      {"--color-transform night:1800", {{{0, 1}, {0, 0, 0.2313}, {0, 0, 0, 0}}}, 0.02},
      {"--color-transform night:3400", {{{0, 1}, {0, 0, 0.5917}, {0, 0, 0, 0.2395}}}, 0.02},
      {"--color-transform night:6504", {{{0, 1}, {0, 0, 1}, {0, 0, 0, 1}}}},
      {"--color-transform night:10000", {{{0, 0.6064}, {0, 0, 0.7311}, {0, 0, 0, 1}}}, 0.02},
      // What red, green, blue and 1 become.
      {"--color-transform '1 0 -0.5 0, 0 1 0 0, 0 0 1 0, 0.2 0 0 1'",
       {{{51, 1}, {0, 0, 1}, {0, -0.5, 0, 1}}}},
      {"--color-transform inversion --dimming 0.5 --repeat 3 --ltm " + ltm,
       {{{1148, -1, -1.5, -2}, {127.5, 0, -0.5}, {127.5, 0, 0, -0.5}}}},
  };
  for (const auto& test : cases) {  // on the native mode's own block, the identity
    const ZelctlRun run = RunZelctl("render native --json " + test.settings);
    ASSERT_EQ(run.status, 0) << run.err;
    const auto rows = json::parse(run.out)["rounds"].back()["pcc"]["rows"];
    for (size_t i = 0; i < 12; ++i) {
      EXPECT_NEAR(rows[std::string(1, "rgb"[i / 4])][i % 4].get<double>(), test.rows[i / 4][i % 4],
                  test.tolerance)
          << test.settings << ", row " << i / 4 << " term " << i % 4;
    }
  }
}

TEST(Command, HelpsAndSumsUp) {
  const ZelctlRun help = RunZelctl("--help");
  EXPECT_EQ(help.status, 0) << help.err;
  EXPECT_TRUE(Contains(help.out, "  zelctl render srgb --image in.png -o out.png\n")) << help.out;
  const std::string table = RunZelctl("render vivid").out;
  EXPECT_TRUE(Contains(table, "  c0 257: 0..4095, c1 257: 0..4095, c2 257: 0..4095, ")) << table;
  EXPECT_TRUE(Contains(table, "  i_params 0 12 0 6, f_params 1.0 1.08")) << table;
}

TEST(Command, LogLevelReachesThePlugin) {
  const std::string render = "render 1 --calibration --color-transform grayscale --log-level ";
  const std::string start_up = RunZelctl(render + "1").err;
  EXPECT_EQ(RunZelctl(render + "0").err, "");
  EXPECT_TRUE(Contains(start_up, "NotifyDisplayCalibrationMode"));
  EXPECT_FALSE(Contains(start_up, "pcc multiply by libtarn-algo"));
  EXPECT_TRUE(Contains(RunZelctl(render + "2").err, "pcc multiply by libtarn-algo"));
}

}  // namespace
