// SPDX-License-Identifier: Apache-2.0

// The ends and defaults that docs/panel-description.md states, in the order of its tables.
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <fstream>
#include <nlohmann/json.hpp>
#include <regex>

#include "tests/devkit/reference/documented_rows.h"
#include "tests/devkit/reference/panel_summary.h"

namespace {

bool IsRefused(const std::string& summary) { return summary.starts_with("refused: "); }

json With(const std::string& place, const json& value) {
  json description = kBase;
  description[json::json_pointer(place)] = value;
  return description;
}

json Without(const std::string& place) {
  const json::json_pointer pointer(place);
  json description = kBase;
  description[pointer.parent_pointer()].erase(pointer.back());
  return description;
}

TEST(DocumentedValues, HaveTheirEndsAndDefaults) {
  ASSERT_FALSE(IsRefused(Read(kBase))) << Read(kBase);
  for (const Row& row : AllRows()) {
    SCOPED_TRACE(row.place);
    std::vector<std::string> summaries;
    for (const json& value : row.accepted) {
      const std::string summary = Read(With(row.place, value));
      EXPECT_FALSE(IsRefused(summary)) << summary;
      EXPECT_EQ(std::count(summaries.begin(), summaries.end(), summary), 0) << value;
      summaries.push_back(summary);
    }
    std::vector<json> refused = row.refused;
    const bool is_text =
        row.place.ends_with("label") || row.place == "/name" || row.place.ends_with("text");
    refused.insert(refused.end(), {nullptr, is_text ? json(1) : json("?")});
    for (const json& value : refused) EXPECT_TRUE(IsRefused(Read(With(row.place, value)))) << value;
    // An element can't be left out, only the whole.
    if (isdigit(row.place.back()) != 0 && row.place != kMode) continue;
    const std::string without = Read(Without(row.place));
    if (row.by_default.is_null()) {
      EXPECT_TRUE(IsRefused(without));
    } else if (row.by_default == kAbsent) {
      EXPECT_FALSE(IsRefused(without)) << without;
      EXPECT_EQ(std::count(summaries.begin(), summaries.end(), without), 0);
    } else {
      EXPECT_EQ(without, Read(With(row.place, row.by_default)));
    }
  }
}

// Names stand for the figures beside them.
TEST(DocumentedValues, NamesStandForTheirFigures) {
  const auto primaries = [](double rx, double ry, double gx, double gy, double bx, double by) {
    return json{{"red", {rx, ry}}, {"green", {gx, gy}}, {"blue", {bx, by}}};
  };
  const json p3 = primaries(0.680, 0.320, 0.265, 0.690, 0.150, 0.060);
  const json d65 = {0.3127, 0.3290};
  const struct {
    json name;
    json figures;
    json white;
  } gamuts[] = {
      {"panel", kBase["panel"]["primaries"], kBase["panel"]["white"]},
      {"srgb", primaries(0.640, 0.330, 0.300, 0.600, 0.150, 0.060), d65},
      {"display_p3", p3, d65},
      {"dcip3", p3, {0.314, 0.351}},
      {"bt2020", primaries(0.708, 0.292, 0.170, 0.797, 0.131, 0.046), d65},
  };
  for (const auto& [name, figures, white] : gamuts) {
    EXPECT_EQ(Read(With(kTarget, {{"primaries", name}})),
              Read(With(kTarget, {{"primaries", figures}, {"white", white}})))
        << name;
  }
  EXPECT_EQ(Read(With(kTarget, {{"primaries", p3}})),
            Read(With(kTarget, {{"primaries", p3}, {"white", "panel"}})));
  for (const auto& [name, white] : {std::pair<json, json>{"panel", kBase["panel"]["white"]},
                                    {"D65", d65},
                                    {"D50", {0.3457, 0.3585}},
                                    {"DCI", {0.314, 0.351}}}) {
    EXPECT_EQ(Read(With(kTarget + "/white", name)), Read(With(kTarget + "/white", white))) << name;
  }
  const json ramp = {{"ramp", {{0, 1}, {0.5, 2}, {1, 5}}}};
  const auto with_ramp = [&](const char* key, const json& value) {
    json transfer = ramp;
    transfer[key] = value;
    return Read(With(kTarget + "/transfer", transfer));
  };
  const std::string plain = Read(With(kTarget + "/transfer", ramp));
  EXPECT_EQ(with_ramp("full_scale", 1), plain);
  EXPECT_EQ(with_ramp("fit", "none"), plain);
  EXPECT_EQ(
      with_ramp("ramp", {{"red", ramp["ramp"]}, {"green", ramp["ramp"]}, {"blue", ramp["ramp"]}}),
      plain);
  EXPECT_TRUE(IsRefused(with_ramp("full_scale", 0.9)));
  EXPECT_TRUE(IsRefused(
      Read(With(kTarget + "/transfer", {{"ramp", {{0, 1}, {65536, 2}}}, {"full_scale", 65536}}))));
  EXPECT_TRUE(IsRefused(with_ramp("fit", "linear")));
  const json thirds = {{0, 1}, {1.0 / 3, 2}, {1, 5}};
  const json codes = {{0, 1}, {21845, 2}, {65535, 5}};
  EXPECT_EQ(Read(With(kTarget + "/transfer", {{"ramp", thirds}})),
            Read(With(kTarget + "/transfer", {{"ramp", codes}, {"full_scale", 65535}})));
}

// A key that the tables gain is to be tested here too.
TEST(DocumentedValues, AreAllHere) {
  std::ifstream file(PANEL_GUIDE);
  const std::regex first_cell(R"(^\| `([a-z_.0-9]+)` \|)");
  std::string keys;
  for (const Row& row : AllRows()) keys += row.place + "/";
  size_t found = 0;
  bool is_of_keys = false;
  for (std::string line; std::getline(file, line);) {
    is_of_keys = line.starts_with("| Key |") || (is_of_keys && line.starts_with("|"));
    std::smatch match;
    if (!is_of_keys || !std::regex_search(line, match, first_cell)) continue;
    std::string key = match[1];
    std::replace(key.begin(), key.end(), '.', '/');
    EXPECT_NE(keys.find("/" + key + "/"), std::string::npos) << key;
    ++found;
  }
  EXPECT_GE(found, 30);
}

}  // namespace
