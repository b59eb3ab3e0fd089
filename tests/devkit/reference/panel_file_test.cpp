// SPDX-License-Identifier: Apache-2.0

// Panel descriptions that are refused: each names the place and the reason.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"

namespace {

using nlohmann::json;

const std::string kPanel = R"({
  "format": 1, "name": "tester",
  "panel": {
    "primaries": {"red": [0.64, 0.33], "green": [0.3, 0.6], "blue": [0.15, 0.06]},
    "white": [0.3127, 0.329], "luminance": {"peak": 500}, "transfer": "srgb"
  },
  "dither": {"bits": 8},
  "modes": [
    {"label": "native", "gamut": 0, "gamma": 0, "intent": 0, "hw_assets": ["an asset"]},
    {"label": "other", "gamut": 254, "gamma": 0, "intent": 0,
     "target": {"primaries": "bt2020"}, "blocks": {"de": {"params": "01"}}}
  ]
})";

// Why the file is refused, without its name; empty when it is accepted.
std::string RefusalOfFile(const std::string& path) {
  try {
    tarn::reference::ReadPanel(path);
    return "";
  } catch (const tarn::reference::PanelError& error) {
    const std::string line = error.what();
    EXPECT_EQ(line.substr(0, path.size() + 2), path + ": ");
    EXPECT_EQ(line.find('\n'), std::string::npos) << line;
    return line.substr(path.size() + 2);
  }
}

std::string RefusalOf(const std::string& text) {
  const std::string path = testing::TempDir() + "panel_" + std::to_string(getpid()) + ".json";
  std::ofstream(path, std::ios::binary) << text;
  std::string refusal = RefusalOfFile(path);
  std::filesystem::remove(path);
  return refusal;
}

TEST(PanelFile, IsRefusedWithPlaceAndReason) {
  const std::string de = R"("de": {"params": "01"})";
  const std::string blob_start = R"("hdr_blob": {"text": ")" + std::string(1 << 20, 'x');
  const std::string fifteen = "0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,";
  std::string letters;
  while (letters.size() < 2 * 64) letters += "\u00e9";
  struct Case {
    std::string text;  // in the description above
    std::string other;
    std::string refusal;  // its beginning; empty where the other text is accepted
  };
  const Case cases[] = {
      {kPanel, "\xef\xbb\xbf" + kPanel, ""},
      {kPanel, "[" + kPanel + "]", "$: expected an object"},
      {kPanel, kPanel + std::string("\n\0 }}}", 6), "line 14: holds a NUL byte"},
      {kPanel, "\n" + std::string(100000, '['), "line 2: nested too deeply"},
      {"500", "500,,", "line 5: syntax error"},
      {"500", "500, \"peak\": 600", "line 5: key \"peak\" stands twice in one object"},
      {"tester", std::string(17 << 20, 'x'), "larger than 16 MiB"},
      {"tester", "", "$.name: expected 1 to 256 characters, none a control character"},
      {"\"format\"", "\"other\"", "$: key \"format\" is missing"},
      {"\"format\"", "\"a\\nb\": 1, \"format\"", "$: unknown key \"a\\nb\""},
      {"1,", "2,", "$.format: expected 1"},
      {"0.64, 0.33", "0.64", "$.panel.primaries.red: expected an array of 2"},
      {"0.64, 0.33", "0.7, 0.6", "$.panel.primaries.red: x + y must not exceed 1"},
      {"0.64, 0.33", "0.67, 0.3302", "$.panel.primaries.red: x + y must not exceed 1"},
      {"0.64, 0.33", "0.67, 0.33005", ""},  // rounded
      {"\"panel\":", R"("source": ["measured", "a\nb"], "panel":)", "$.source[1]: expected"},
      {"\"panel\":", R"("source": "measured", "panel":)", "$.source: expected an array"},
      {"\"panel\":", R"("source": ["measured"], "panel":)", ""},
      {"0.06", "0", "$.panel.primaries.blue[1]: expected a number from 0.001 to 1"},
      {"0.3, 0.6", "0.395, 0.195", "$.panel.primaries: red, green and blue lie on one line"},
      {"0.329", "0.5", "$.panel.white[1]: expected a number from 0.25 to 0.45"},
      {"0.3127, 0.329", "0.2, 0.45", "$.panel.white: white lies outside the triangle"},
      {"500", "10000, \"black\": 100", ""},
      {"500", "500, \"black\": 5.1", "$.panel.luminance.black: expected a number from 0 to 5"},
      {R"("transfer": "srgb")", R"("transfer": "gamma2.2")",
       "$.panel.transfer: expected one of linear, srgb, or an object with \"gamma\" or \"ramp\""},
      {"\"bt2020\"", "\"bt709\"",
       "$.modes[1].target.primaries: expected one of bt2020, dcip3, display_p3, panel, srgb, or an "
       "object with \"red\", \"green\" and \"blue\""},
      {"\"bt2020\"", "\"srgb\", \"white\": \"d65\"",
       "$.modes[1].target.white: expected one of D50, D65, DCI, panel, or an array of x and y"},
      {"\"srgb\"", "{}", "$.panel.transfer: expected one of the keys \"gamma\" and \"ramp\""},
      {"\"srgb\"", R"({"gamma": 2, "ramp": []})", "$.panel.transfer: expected one of the keys"},
      {"\"srgb\"", R"({"gamma": 2, "fit": "none"})", "$.panel.transfer: unknown key \"fit\""},
      {"\"srgb\"", R"({"ramp": [[0, 1]]})",
       "$.panel.transfer.ramp: expected an array with a length from 2 to 1024"},
      {"\"srgb\"", R"({"ramp": [[0, 1], [1, 1]]})",
       "$.panel.transfer.ramp[1]: light must rise, by more than 1e-9 of its range (\"fit\": "
       "\"isotonic\" evens it out)"},
      {"\"srgb\"", R"({"ramp": [[0, 0], [0, 1], [1, 2]]})", "$.panel.transfer.ramp[1]: signal"},
      {"\"srgb\"", R"({"ramp": [[0.1, 0], [1, 1]]})", "$.panel.transfer.ramp: signals must"},
      {"\"srgb\"", R"({"ramp": [[0, 0], [1, 1]], "full_scale": 255})",
       "$.panel.transfer.ramp: signals must reach from 0 to 255"},
      {"\"srgb\"", R"({"ramp": [[0, 0], [256, 1]], "full_scale": 255})",
       "$.panel.transfer.ramp[1][0]: expected a number from 0 to 255"},
      {"\"srgb\"", R"({"ramp": {"red": [[0, 0], [1, 1]], "green": [[0, 0], [1, 1]]}})",
       "$.panel.transfer.ramp: key \"blue\" is missing"},
      {"\"srgb\"", R"({"ramp": [[0, 1], [0.5, 3], [1, 2.9]], "fit": "isotonic"})",
       "$.panel.transfer.ramp: light falls too far to be fitted"},
      {"\"srgb\"", R"({"ramp": [[0, 2], [1, 1]], "fit": "isotonic"})",
       "$.panel.transfer.ramp: light falls too far to be fitted"},
      {"\"bt2020\"", R"("srgb", "transfer": {"st2084": {"peak": 1000, "black": 11}})",
       "$.modes[1].target.transfer.st2084.black: expected a number from 0 to 10"},
      {"8}", "8, \"matrix\": [16]}", "$.dither.matrix: expected an array of 16"},
      {"8}", "8, \"matrix\": [" + fifteen + "16]}",
       "$.dither.matrix[15]: expected an integer from"},
      {"8", "8.5", "$.dither.bits: expected an integer from 1 to 16"},
      {"native", letters, ""},
      {"native", letters + "x", "$.modes[0].label: expected 1 to 64 characters"},
      {"native", "two\\nlines", "$.modes[0].label: expected 1 to 64 characters"},
      {"an asset", "\\u009b", "$.modes[0].hw_assets[0]: expected 1 to 64 characters"},
      {"other", "native", "$.modes[1]: has the label of an earlier mode"},
      {"254", "0", "$.modes[1]: has the ids of mode \"native\""},
      {"254", "255", "$.modes[1].gamut: expected an integer from 0 to 254"},
      {de, R"("pa": {"i_params": [18446744073709551615, 0, 0, 0]})", "$.modes[1].blocks.pa.i_par"},
      {"\"bt2020\"", "\"srgb\", \"white\": [0.2, 0.45]", "$.modes[1].target.white: white lies"},
      {"01", "0g", "$.modes[1].blocks.de.params: expected hexadecimal digits, at character 0"},
      {"01", "012", "$.modes[1].blocks.de.params: expected two hexadecimal digits per byte"},
      {"01", std::string(82, '0'), "$.modes[1].blocks.de.params: expected at most 40 bytes, found"},
      {de, R"("pa": {"f_params": [1, 2, 3, 1e39]})", "$.modes[1].blocks.pa.f_params[3]: expected"},
      {de, "\"hdr_blob\": {}", "$.modes[1].blocks.hdr_blob: expected either \"hex\" or \"text\""},
      {de, blob_start + "\"}", ""},
      {de, blob_start + "x\"}", "$.modes[1].blocks.hdr_blob.text: expected at most 1048576 bytes"},
  };
  for (const Case& c : cases) {
    std::string text = kPanel;
    const std::string refusal = RefusalOf(text.replace(text.find(c.text), c.text.size(), c.other));
    EXPECT_EQ(refusal.substr(0, c.refusal.size()), c.refusal) << c.other.substr(0, 60);
    EXPECT_EQ(refusal.empty(), c.refusal.empty()) << refusal;
  }
  EXPECT_EQ(RefusalOfFile("/nonexistent/panel.json"), "No such file or directory");
  EXPECT_EQ(RefusalOfFile(testing::TempDir()), "not a file");
}

// The guide's smallest description, and the lines that it shows for what is refused.
TEST(PanelFile, IsAsTheGuideSays) {
  std::stringstream guide;
  guide << std::ifstream(PANEL_GUIDE).rdbuf();
  const std::string fence = "```json\n";
  const size_t start = guide.str().find(fence) + fence.size();
  const std::string smallest = guide.str().substr(start, guide.str().find("```", start) - start);
  EXPECT_EQ(RefusalOf(smallest), "");

  const size_t measured = guide.str().find(fence + "\"transfer\": {") + fence.size();
  std::string with_ramps = kPanel;
  const std::string by_name = R"("transfer": "srgb")";
  with_ramps.replace(with_ramps.find(by_name), by_name.size(),
                     guide.str().substr(measured, guide.str().find("```", measured) - measured));
  EXPECT_EQ(RefusalOf(with_ramps), "") << with_ramps;

  const struct {
    std::string text;  // in the description above
    std::string other;
  } refused[] = {
      {R"("luminance")", "\n\n}"},
      {R"({"peak": 500})", "{\n\n\n\n\"peak\": 500, \"peak\": 600}"},
      {"\n  ]", R"(, {"label": "third", "gamut": 1, "gamma": 0, "intent": 0,
                     "target": {"primaries": "bt709"}} ])"},
  };
  for (const auto& [text, other] : refused) {
    std::string changed = kPanel;
    changed.replace(changed.find(text), text.size(), other);
    EXPECT_NE(guide.str().find("phone.json: " + RefusalOf(changed) + '\n'), std::string::npos)
        << RefusalOf(changed);
  }
}

// What holds for every value and object that there can be.
TEST(PanelFile, NoValueMayBeNullAndNoObjectMayHoldAnUnknownKey) {
  std::ifstream file(PANELS "phone-oled.json");
  const json phone = json::parse(file);
  const json leaves = phone.flatten();  // items() refers to it
  for (const auto& leaf : leaves.items()) {
    json::json_pointer place(leaf.key());
    json description = phone;
    description[place] = nullptr;
    EXPECT_EQ(RefusalOf(description.dump()).substr(0, 2), "$.") << place;
    while (!phone[place].is_object()) place = place.parent_pointer();
    description = phone;
    description[place]["x"] = 1;
    EXPECT_TRUE(RefusalOf(description.dump()).ends_with(": unknown key \"x\"")) << place;
  }
}

}  // namespace
