// SPDX-License-Identifier: Apache-2.0
#include <memory>
#include <utility>

#include "pcc/pcc_config.h"
#include "tests/support/plugin_host.h"

using velaricolor::HwConfigOutputParams;

namespace {

class Factory : public PluginTest {};

TEST_F(Factory, MakesObjectsOfVersionTwoZeroOnly) {
  const PluginLibrary library;
  for (const auto& [major, minor] :
       {std::pair{2, 1}, {1, 0}, {3, 0}, {0, 2}, {2, -1}, {-2, 0}, {1, 2}, {0, 0}}) {
    EXPECT_EQ(library.Create(major, minor), nullptr) << major << "." << minor;
  }
  const auto first = library.Create(2, 0);
  EXPECT_NE(first, nullptr);
  EXPECT_NE(library.Create(2, 0), first);
  EXPECT_EQ(Platform().TakeEvents(), Lines());  // constructed and destroyed without a library
}

class Log : public PluginTest {
 protected:
  void BringOutEverything();
};

TEST_F(Log, LevelIsReadOnceWhileTheLibraryLoads) {
  const std::pair<const char*, size_t> cases[] = {{"0", 0},  {"1", 1},     {"2", 2},  {"3", 1},
                                                  {"-1", 1}, {"7", 1},     {"2x", 2}, {"abc", 0},
                                                  {"", 1},   {nullptr, 1}, {" 2", 2}};
  for (const auto& [text, level] : cases) {
    SCOPED_TRACE(text == nullptr ? "absent" : text);
    Platform().log_level = text;
    const PluginLibrary library;
    EXPECT_EQ(std::exchange(Platform().properties_read, {}), Lines{"vendor.display.zelloglevel"});
    Platform().log_level = level == 0 ? "2" : "0";
    const auto object = library.Create(2, 0);  // a line of level 1
    library.Create(2, 1);                      // and one of level 2
    EXPECT_EQ(Platform().TakeLog().size(), level);
    EXPECT_EQ(object->Init("panel"), 0);
    EXPECT_EQ(Platform().TakeLog().size(), level == 0 ? 0U : 1U);
    EXPECT_EQ(Platform().properties_read, Lines());
  }
}

// Every line of information, and two errors.
void Log::BringOutEverything() {
  Load();
  Library().Create(2, 1);
  Parser().modes.clear();
  EXPECT_EQ(Init(), 0);
  Parser().modes.resize(3);
  Platform().algo_opens = false;
  EXPECT_EQ(Init(), 0);

  HwConfigOutputParams output;
  auto request = velaricolor::ModeRenderInputParams();
  request.mode = {.gamut = 4, .gamma = 5, .intent = 6, .hw_assets = {}, .label = {}};
  EXPECT_EQ(Run(velaricolor::kVcModeRenderIntent, request, &output), 0);
  Parser().blocks = {Block("PostBlendPCC", std::make_shared<tarn::PccPostBlendConfig>())};
  for (const int result : {0, -5}) {
    Parser().process_result = result;
    EXPECT_EQ(Run(velaricolor::kVcModeSwAssets, request, &output), result);
  }
  Parser().process_result = 0;
  EXPECT_EQ(Set(700, 0), -95);
  EXPECT_EQ(Get(701, &output), -95);
  EXPECT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  auto* const notified = reinterpret_cast<void*>(77);
  EXPECT_EQ(Plugin().SetProperty({.prop = 12, .payload = notified}), 0);

  auto ltm = velaricolor::PccPostBlendConfig();
  ltm.enable = true;
  EXPECT_EQ(Set(velaricolor::kVcLtmPccConfig, ltm), 0);
  static_cast<tarn::PccPostBlendConfig*>(Parser().blocks[0].payload.get())->enable = true;
  EXPECT_EQ(Render(&output), 0);
  Platform().algo_opens = true;
  EXPECT_EQ(Init(), 0);
  EXPECT_EQ(Render(&output), 0);
  EXPECT_EQ(Set(99, 0), -22);
}

TEST_F(Log, HoldsExactlyTheLinesOfItsLevel) {
  const std::string blocks = ", output Hw configs ";
  const std::pair<int, std::string> catalogue[] = {
      {1, "I GetVcPostBlendInterface: ZelTarnImpl created"},
      {2, "I GetVcPostBlendInterface: Invalid major_version 2 minor_version 1"},
      {1, "I thread_handler: modes sz 0 parsing status 0\n"},
      {1, "I Init: Get 0 modes in mode list"},
      {1, "I LoadTarnAlgoLib: Failed to load = libtarn-algo.so"},
      {1, "I thread_handler: Pcc merging not supported"},
      {1, "I Init: Get 3 modes in mode list"},
      {2, "I ProcessOps: Process Ops called, op = 0"},
      {2, "I ProcessModeRenderIntent: Successfully with mode (gamut 4, gamma 5, intent 6)" +
              blocks + "0"},
      {2, "I ApplyPccAttenuationFactor: no pcc matrix in output_params"},
      {2, "I ProcessOps: Process Ops called, op = 1"},
      {2,
       "I ProcessModeSwAssets: Successfully with mode (gamut 4, gamma 5, intent 6)" + blocks + "1"},
      {2, "I ProcessOps: Process Ops called, op = 1"},
      {0, "E ProcessModeSwAssets: Failed to process kVcModeSwAssets, ret -5"},
      {2, "I SetProperty: Unsupported prop 700, function (nil)K"},
      {2, "I GetProperty: Unsupported prop 701, function (nil)K"},
      {2, "I SetDimmingPcc: pcc attenuation factor is 0.500000"},
      {1, "I NotifyDisplayCalibrationMode: Payload value: 77"},
      {2, "I SetLtmPccConfig: Set ltm PCC config enable 1"},
      {2, "I ProcessOps: Process Ops called, op = 0"},
      {2, "I ProcessModeRenderIntent: Successfully with mode (gamut 0, gamma 0, intent 0)" +
              blocks + "1"},
      {2, "I ProcessModeRenderIntent: Apply ltm pcc, enable 1"},
      {2, "I ApplyColorTransform: libtarn-algo not initialized, using 3x3 pcc multiplication"},
      {1, "I Init: Get 3 modes in mode list"},
      {2, "I ProcessOps: Process Ops called, op = 0"},
      {2, "I ProcessModeRenderIntent: Successfully with mode (gamut 0, gamma 0, intent 0)" +
              blocks + "1"},
      {2, "I ProcessModeRenderIntent: Apply ltm pcc, enable 1"},
      {2, "I ApplyColorTransform: pcc multiply by libtarn-algo"},
      {0, "E SetProperty: Invalid prop 99, function (nil)K"},
  };
  for (const auto& [level, text] : {std::pair{0, "0"}, {1, "1"}, {2, "2"}}) {
    SCOPED_TRACE(level);
    Platform() = {.log_level = text};
    Parser() = {};
    BringOutEverything();
    for (const LogLine& line : Platform().log) {
      EXPECT_EQ(line.tag, "PXL") << line.text;
      EXPECT_GT(line.line, 0) << line.text;
      EXPECT_TRUE(line.priority == 4 || line.priority == 6) << line.text;
    }
    Lines expected;
    for (const auto& [threshold, line] : catalogue) {
      if (threshold <= level) expected.push_back(line);
    }
    EXPECT_EQ(Platform().TakeLog(), expected);
  }
}

}  // namespace
