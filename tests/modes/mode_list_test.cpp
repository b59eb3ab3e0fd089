// SPDX-License-Identifier: Apache-2.0
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

TEST_F(ModeList, RefusesAnotherVersionAndLeavesTheRecord) {
  Start();
  ColorModeList list = {.version = 32, .modes = {{.label = "mine"}, {}}};
  EXPECT_EQ(Get(kVcModesList, &list), -22);
  EXPECT_EQ(Platform().TakeLog(), Lines{"E VersionCheck: invalid version 32 expected 96"});
  ASSERT_EQ(list.modes.size(), 2U);
  EXPECT_EQ(list.modes[0].label, "mine");
}

}  // namespace
