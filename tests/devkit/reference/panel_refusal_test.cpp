// Panel descriptions that are refused: each names the place and the reason.
#include <gtest/gtest.h>

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/devkit/reference/captured_log.h"
#include "tests/devkit/reference/opened_library.h"

namespace {

using nlohmann::json;

const char* const kSmallest = R"({
  "format": 1,
  "name": "smallest",
  "panel": {
    "primaries": {"red": [0.64, 0.33], "green": [0.3, 0.6], "blue": [0.15, 0.06]},
    "white": [0.3127, 0.329],
    "luminance": {"peak": 500},
    "transfer": "srgb"
  },
  "modes": [{"label": "native", "gamut": 0, "gamma": 0, "intent": 0}]
})";

// The smallest description with another text in the place of `from`.
std::string With(const std::string& from, const std::string& to) {
  std::string text = kSmallest;
  return text.replace(text.find(from), from.size(), to);
}

// With a blob of `size` bytes.
std::string WithBlob(size_t size) {
  return With("\"intent\": 0", R"("intent": 0, "sw_assets": {"hdr_blob": {"text": ")" +
                                   std::string(size, 'x') + "\"}}");
}

class PanelFile : public testing::Test {
 protected:
  ~PanelFile() override { std::filesystem::remove(path_); }

  // The one line that Init leaves on the log for a file of this text, without
  // its beginning; empty when the file is accepted.
  std::string Refusal(const std::string& text) {
    std::ofstream(path_, std::ios::binary) << text;
    return RefusalOf(path_);
  }

  std::string RefusalOf(const std::string& path) {
    TakeLog();
    const int result = ModeParserLibrary().New()->Init(path);
    const std::vector<std::string> lines = TakeLog();
    if (result == 0) return lines.empty() ? "" : "accepted, but logged " + lines.front();
    const std::string start = "6 TARN-PARSER " + path + ": ";
    EXPECT_EQ(result, -22);
    EXPECT_EQ(lines.size(), 1U);
    if (lines.empty()) return "nothing logged";
    EXPECT_EQ(lines[0].find('\n'), std::string::npos);
    EXPECT_EQ(lines[0].substr(0, start.size()), start);
    return lines[0].substr(start.size());
  }

  const std::string path_ = testing::TempDir() + "zeltarn_panel_" +
                            testing::UnitTest::GetInstance()->current_test_info()->name() + "_" +
                            std::to_string(getpid()) + ".json";
};

TEST_F(PanelFile, SmallestAndBoundsAreAccepted) {
  std::string letters;
  while (letters.size() < 2 * 64) letters += "\u00e9";
  for (const std::string& text :
       {std::string(kSmallest), "\xef\xbb\xbf" + std::string(kSmallest), With("native", letters),
        WithBlob(1 << 20), With("\"peak\": 500", "\"peak\": 10000, \"black\": 100")}) {
    EXPECT_EQ(Refusal(text), "") << text.substr(0, 300);
  }
}

TEST_F(PanelFile, WrongValues) {
  struct Case {
    const char* pointer;  // place of `value` in the smallest description
    const char* value;    // in JSON; empty removes the place
    std::string refusal;
  };
  const std::string line = ": expected 1 to 64 characters, none a control character";
  const std::string outside =
      ": white lies outside the triangle of the primaries, or too near to its edge";
  const std::string rise = ": signal and light must rise, by more than 1e-9 of their range";
  const Case cases[] = {
      {"/format", "", "$: key \"format\" is missing"},
      {"/format", "2", "$.format: expected 1"},
      {"/a\nb", "1", "$: unknown key \"a\\nb\""},
      {"/panel/primaries/blue", "", "$.panel.primaries: key \"blue\" is missing"},
      {"/panel/primaries/red", "[0.64]", "$.panel.primaries.red: expected an array of 2"},
      {"/panel/primaries/red/0", "-0.1", "$.panel.primaries.red[0]: expected a number from 0 to 1"},
      {"/panel/primaries/blue/1", "0",
       "$.panel.primaries.blue[1]: expected a number from 0.001 to 1"},
      {"/panel/primaries/red", "[0.7, 0.6]", "$.panel.primaries.red: x + y must not exceed 1"},
      {"/panel/primaries/green", "[0.395, 0.195]",
       "$.panel.primaries: red, green and blue lie on one line"},
      {"/panel/white", "[0.3, 0.5]", "$.panel.white[1]: expected a number from 0.25 to 0.45"},
      {"/panel/white", "[0.2, 0.45]", "$.panel.white" + outside},
      {"/panel",
       R"({"primaries": {"red": [0.6, 0.3], "green": [0.3, 0.6], "blue": [0.15, 0.06]},
           "white": [0.45, 0.45], "luminance": {"peak": 500}, "transfer": "srgb"})",
       "$.panel.white" + outside},
      {"/panel/luminance/black", "5.1", "$.panel.luminance.black: expected a number from 0 to 5"},
      {"/panel/transfer", "5", "$.panel.transfer: expected a name or an object"},
      {"/panel/transfer", "\"st2084\"", "$.panel.transfer: expected one of linear, srgb"},
      {"/panel/transfer", "{}", "$.panel.transfer: expected the key \"gamma\" or \"ramp\""},
      {"/panel/transfer", "{\"gamma\": 0.9}",
       "$.panel.transfer.gamma: expected a number from 1 to 4"},
      {"/panel/transfer", "{\"gamma\": 2, \"ramp\": [[0, 0], [1, 1]]}",
       "$.panel.transfer: expected \"gamma\" or \"ramp\", not both"},
      {"/panel/transfer", "{\"ramp\": [[0, 0]]}",
       "$.panel.transfer.ramp: expected an array with a length from 2 to 1024"},
      {"/panel/transfer", "{\"ramp\": [[0, 0], [0.5, 0.2], [0.5, 0.3], [1, 1]]}",
       "$.panel.transfer.ramp[2]" + rise},
      {"/panel/transfer", "{\"ramp\": [[0, 0], [0.25, 1e-320], [0.5, 2e-320], [1, 10000]]}",
       "$.panel.transfer.ramp[1]" + rise},
      {"/panel/transfer", "{\"ramp\": [[0, 1], [1, 1]]}", "$.panel.transfer.ramp[1]" + rise},
      {"/panel/transfer", "{\"ramp\": [[0.1, 0], [1, 1]]}",
       "$.panel.transfer.ramp: signals must reach from 0 to 1"},
      {"/panel/bit_depth", "10.5", "$.panel.bit_depth: expected an integer from 6 to 16"},
      {"/dither", "{\"bits\": 0}", "$.dither.bits: expected an integer from 1 to 16"},
      {"/dither", "{\"matrix\": [0,1,2,3,4,5,6,7,8,9,10,11,12,13,14,16]}",
       "$.dither.matrix[15]: expected an integer from 0 to 15"},
      {"/modes", "[]", "$.modes: expected an array with a length from 1 to 4096"},
      {"/name", "\"\"", "$.name: expected 1 to 256 characters, none a control character"},
      {"/modes/0/label", "\"\"", "$.modes[0].label" + line},
      {"/modes/0/label", "\"two\\nlines\"", "$.modes[0].label" + line},
      {"/modes/0/label", "\"\\u009b\"", "$.modes[0].label" + line},
      {"/modes/0/hw_assets", "[\"\\u0000\"]", "$.modes[0].hw_assets[0]" + line},
      {"/modes/0/gamut", "255", "$.modes[0].gamut: expected an integer from 0 to 254"},
      {"/modes/0/intent", "18446744073709551615",
       "$.modes[0].intent: expected an integer from 0 to 65534"},
      {"/modes/0/hw_assets", "[\"PostBlendIGC\", 3]", "$.modes[0].hw_assets[1]: expected a text"},
      {"/modes/1", R"({"label": "x", "gamut": 0, "gamma": 0, "intent": 0})",
       "$.modes[1]: has the ids of mode \"native\""},
      {"/modes/1", R"({"label": "native", "gamut": 0, "gamma": 0, "intent": 1})",
       "$.modes[1]: has the label of an earlier mode"},
      {"/modes/0/target", "{\"primaries\": \"sRGB\"}",
       "$.modes[0].target.primaries: expected one of bt2020, dcip3, display_p3, panel, srgb"},
      {"/modes/0/target", "{\"white\": [0.2, 0.45]}", "$.modes[0].target.white" + outside},
      {"/modes/0/target", R"({"primaries": {"red": [0.7, 0.3], "green": [0.2, 0.7],
           "blue": [0.35, 0.3]}})",
       "$.modes[0].target" + outside},
      {"/modes/0/target", "{\"white\": 6500}",
       "$.modes[0].target.white: expected a name or an array of 2"},
      {"/modes/0/target", "{\"primaries\": []}",
       "$.modes[0].target.primaries: expected a name or an object"},
      {"/modes/0/target", "{\"adaptation\": 1}",
       "$.modes[0].target.adaptation: expected true or false"},
      {"/modes/0/blocks", "{\"de\": {\"params\": \"0g\"}}",
       "$.modes[0].blocks.de.params: expected hexadecimal digits, at character 0"},
      {"/modes/0/blocks", "{\"de\": {\"params\": \"012\"}}",
       "$.modes[0].blocks.de.params: expected two hexadecimal digits per byte"},
      {"/modes/0/blocks", "{\"pa\": {\"f_params\": [1, 2, 3, 1e39]}}",
       "$.modes[0].blocks.pa.f_params[3]: expected a number from -3.40282e+38 to 3.40282e+38"},
      {"/modes/0/sw_assets", "{\"hdr_blob\": {}}",
       "$.modes[0].sw_assets.hdr_blob: expected either \"hex\" or \"text\""},
  };
  for (const Case& c : cases) {
    json description = json::parse(kSmallest);
    const json::json_pointer pointer(c.pointer);
    if (*c.value == '\0') {
      description[pointer.parent_pointer()].erase(pointer.back());
    } else {
      description[pointer] = json::parse(c.value);
    }
    EXPECT_EQ(Refusal(description.dump()), c.refusal) << c.value;
  }
}

// What holds for every value and object that there can be.
TEST_F(PanelFile, NoValueMayBeNullAndNoObjectMayHoldAnUnknownKey) {
  std::ifstream file(PANELS "phone-oled.json");
  const json phone = json::parse(file);
  ASSERT_EQ(Refusal(phone.dump()), "");
  const json leaves = phone.flatten();  // items() refers to it
  for (const auto& leaf : leaves.items()) {
    json::json_pointer place(leaf.key());
    json description = phone;
    description[place] = nullptr;
    EXPECT_EQ(Refusal(description.dump()).substr(0, 2), "$.") << place;
    while (!phone[place].is_object()) place = place.parent_pointer();
    description = phone;
    description[place]["x"] = 1;
    EXPECT_NE(Refusal(description.dump()).find(": unknown key \"x\""), std::string::npos) << place;
  }
}

TEST_F(PanelFile, WrongTexts) {
  const std::string smallest = kSmallest;
  struct Case {
    std::string text;
    const char* start;  // of the refusal
  };
  const Case cases[] = {
      {"", "line 1: syntax error"},
      {"{\n\n\"format\": 1,\n}", "line 4: syntax error"},
      {With("500", "500,,"), "line 7: syntax error"},
      {With("0.329", "NaN"), "line 6: syntax error"},
      {With("500", "1e999"), "line 7: number overflow"},
      {smallest.substr(0, smallest.size() - 1), "line 11: syntax error"},
      {With("\"smallest\"", "\"\xc3\x28\""), "line 3: syntax error"},
      {With("\"peak\": 500", "\"peak\": 500, \"peak\": 600"),
       "line 7: key \"peak\" stands twice in one object"},
      {"\n" + std::string(100000, '['), "line 2: nested too deeply"},
      {smallest + std::string("\n\0 }}}", 6), "line 12: holds a NUL byte"},
      {"[" + smallest + "]", "$: expected an object"},
      {With("native", std::string(65, 'x')), "$.modes[0].label: expected 1 to 64 characters"},
      {WithBlob((1 << 20) + 1),
       "$.modes[0].sw_assets.hdr_blob.text: expected at most 1048576 bytes, found 1048577"},
      {With("smallest", std::string(17 << 20, 'x')), "larger than 16 MiB"},
  };
  for (const Case& c : cases) {
    const std::string refusal = Refusal(c.text);
    EXPECT_EQ(refusal.substr(0, std::string(c.start).size()), c.start) << c.text.substr(0, 60);
    EXPECT_LT(refusal.size(), 250U);
  }
}

TEST_F(PanelFile, NotAFile) {
  EXPECT_EQ(RefusalOf("/nonexistent/panel.json"), "No such file or directory");
  EXPECT_EQ(RefusalOf(testing::TempDir()), "not a file");
  EXPECT_EQ(RefusalOf(""), "No such file or directory");
}

}  // namespace
