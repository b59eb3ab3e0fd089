#include <tuple>

#include "tests/support/plugin_host.h"

using velaricolor::ColorModeList;
using velaricolor::kVcModesList;

namespace {

class ModeList : public PluginTest {};

TEST_F(ModeList, ReplacesTheHostsListByTheParsersInItsOrder) {
  Parser().modes = {{.gamut = 9, .gamma = 8, .intent = 7, .hw_assets = {"b", "a"}, .label = "x"},
                    {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {}, .label = ""}};
  Start();
  const auto fields = [](const auto& mode) {
    return std::tie(mode.gamut, mode.gamma, mode.intent, mode.hw_assets, mode.label);
  };
  ColorModeList list;
  for (const size_t earlier : {0U, 5U}) {
    list.modes.resize(earlier);
    ASSERT_EQ(Get(kVcModesList, &list), 0);
    ASSERT_EQ(list.modes.size(), 2U);
    for (size_t i = 0; i < 2; ++i) EXPECT_EQ(fields(list.modes[i]), fields(Parser().modes[i]));
  }
}

TEST_F(ModeList, RefusesMalformedRecordsAndLeavesThem) {
  Start();
  const std::string length = "E GetModesList: len of Input params act ";
  const std::tuple<uint32_t, uint32_t, bool, std::string> cases[] = {
      {31, 96, true, length + "31 exp 32"},
      {33, 96, true, length + "33 exp 32"},
      {32, 96, false, length + "32 exp 32"},
      {32, 32, true, "E VersionCheck: invalid version 32 expected 96"},
  };
  for (const auto& [len, version, addressed, line] : cases) {
    SCOPED_TRACE(line);
    ColorModeList list = {.version = version, .modes = {{.label = "mine"}, {}}};
    EXPECT_EQ(Get(kVcModesList, addressed ? &list : nullptr, len), -22);
    EXPECT_EQ(Platform().TakeLog(), Lines{line});
    ASSERT_EQ(list.modes.size(), 2U);
    EXPECT_EQ(list.modes[0].label, "mine");
  }
}

}  // namespace
