// SPDX-License-Identifier: Apache-2.0
#include <climits>
#include <map>
#include <utility>

#include "tests/support/plugin_host.h"

using velaricolor::VcOps;
using velaricolor::VcPayload;

namespace {

class Dispatch : public PluginTest {
 protected:
  void SetUp() override { Platform().log_level = "2"; }

  static std::string LastLine() {
    const Lines log = Platform().TakeLog();
    return log.empty() ? "" : log.back();
  }
};

TEST_F(Dispatch, RefusesBadCallsAndStaysUsable) {
  Load();
  velaricolor::ColorModeList list;
  const auto set = [&](uint32_t version, uint32_t prop) {
    return Plugin().SetProperty({.version = version, .prop = prop});
  };
  const auto get = [&](uint32_t version, uint32_t prop) {
    VcPayload payload = {.version = version, .len = 32, .prop = prop, .payload = &list};
    return Plugin().GetProperty(&payload);
  };
  const auto run = [&](VcPayload* out) {
    return Plugin().ProcessOps(velaricolor::kVcModeRenderIntent, {}, out);
  };
  const auto refused = [&](int result, const std::string& line) {
    EXPECT_EQ(result, -22) << line;
    EXPECT_EQ(LastLine().substr(0, line.size()), line);  // an address may follow
    EXPECT_TRUE(list.modes.empty());
  };
  const auto refuses_all = [&] {
    const std::string params = ": Invalid params : init_done_ 0, actual version 24 exp version 24";
    VcPayload out;
    refused(set(24, 12), "E SetProperty" + params);
    refused(get(24, 1), "E GetProperty" + params);
    refused(run(&out), "E ProcessOps: Invalid params init_done_ 0 output 0x");
  };
  refuses_all();
  ASSERT_EQ(Init(), 0);
  const std::string params = ": Invalid params : init_done_ 1, actual version ";
  refused(set(23, 12), "E SetProperty" + params + "23 exp version 24");
  refused(set(25, 700), "E SetProperty" + params + "25 exp version 24");
  refused(get(23, 700), "E GetProperty" + params + "23 exp version 24");
  refused(get(25, 1), "E GetProperty" + params + "25 exp version 24");
  refused(Plugin().GetProperty(nullptr), "E GetProperty" + params + "0 exp version 24");
  refused(run(nullptr), "E ProcessOps: Invalid params init_done_ 1 output (nil)K");
  EXPECT_EQ(get(24, 1), 0);
  EXPECT_EQ(std::exchange(list.modes, {}).size(), 1U);
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Plugin().DeInit(), 0);
  refuses_all();
}

// A handler refuses the empty envelope (calibration takes it) under its own name.
TEST_F(Dispatch, FindsExactlyTheHandlersOfItsTables) {
  Start();
  const std::map<int, std::string> setters = {{5, "SetColorTransform"},
                                              {6, "SetPostBlendGamutConfig"},
                                              {7, "SetPostBlendGammaConfig"},
                                              {8, "SetPostBlendInvGammaConfig"},
                                              {12, "NotifyDisplayCalibrationMode"},
                                              {13, "SetLtmPccConfig"},
                                              {2055, "SetDimmingPcc"}};
  const std::map<int, std::string> getters = {
      {1, "GetModesList"},        {2, "GetNeedsUpdate"},        {9, "GetSupportTonemap"},
      {14, "GetPbDitheHwConfig"}, {2048, "GetSupportHwAssets"}, {2054, "GetDimmingSupport"}};
  for (int id = -2; id <= 2100; ++id) {
    SCOPED_TRACE(id);
    const bool optional = id >= 513 && id <= 1023;
    const auto check = [&](const auto& handlers, const std::string& entry, int result) {
      const std::string line = LastLine();
      if (const auto handler = handlers.find(id); handler != handlers.end()) {
        EXPECT_EQ(line.substr(0, line.find(':')),
                  std::string(result == 0 ? "I " : "E ") + handler->second);
        EXPECT_EQ(result, handler->second == "NotifyDisplayCalibrationMode" ? 0 : -22);
        return;
      }
      EXPECT_EQ(line, (optional ? "I " + entry + ": Unsupported" : "E " + entry + ": Invalid") +
                          " prop " + std::to_string(id) + ", function (nil)K");
      EXPECT_EQ(result, optional ? -95 : -22);
    };
    VcPayload payload = {.prop = static_cast<uint32_t>(id)};
    check(setters, "SetProperty", Plugin().SetProperty(payload));
    check(getters, "GetProperty", Plugin().GetProperty(&payload));
  }
  for (int id : {-1, 2, 5, INT_MAX}) {
    VcPayload out;
    EXPECT_EQ(Plugin().ProcessOps(static_cast<VcOps>(id), {}, &out), -95);
    EXPECT_EQ(LastLine(), "E ProcessOps: Invalid ops " + std::to_string(id));
  }
}

}  // namespace
