// SPDX-License-Identifier: Apache-2.0

// Initialising again, de-initialising, destroying.
#include <stdexcept>
#include <utility>

#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

namespace {

class Restart : public PccTest {
 protected:
  void SetUp() override { Start(); }

  Lines Labels() {
    velaricolor::ColorModeList list;
    EXPECT_EQ(Get(velaricolor::kVcModesList, &list), 0);
    Lines labels;
    for (const auto& mode : list.modes) labels.push_back(mode.label);
    return labels;
  }

  // Renders an enabled PCC block with an LTM matrix; tells whether it was merged.
  bool Merges() {
    ParserAnswers({}, true);
    SetLtm({});
    velaricolor::HwConfigOutputParams output;
    Algo().merges.clear();
    EXPECT_EQ(Render(&output), 0);
    return !Algo().merges.empty();
  }
};

TEST_F(Restart, SecondInitStartsAfresh) {
  EXPECT_TRUE(Merges());
  Platform().TakeEvents();
  Parser().modes = {{.label = "new"}, {.label = "newer"}};
  ASSERT_EQ(Init("other"), 0);
  EXPECT_EQ(Platform().TakeEvents(),
            (Lines{"delete parser", "delete algo", "close parser", "open parser",
                   "parser factory 2 0", "parser Init other", "parser GetProperty 1", "close algo",
                   "open algo", "algo factory 2 0", "algo Init other"}));
  EXPECT_EQ(Labels(), (Lines{"new", "newer"}));

  Platform().algo_opens = false;
  ASSERT_EQ(Init(), 0);
  EXPECT_FALSE(Merges());
  Platform().algo_opens = true;
  ASSERT_EQ(Init(), 0);
  EXPECT_TRUE(Merges());
}

TEST_F(Restart, FailedSecondInitLeavesAnObjectWithoutModes) {
  Platform().parser_opens = false;
  EXPECT_EQ(Init(), -22);
  EXPECT_EQ(Platform().TakeEvents(),
            (Lines{"delete parser", "delete algo", "close parser", "open parser"}));
  EXPECT_EQ(Labels(), Lines());
  velaricolor::HwConfigOutputParams output;
  EXPECT_EQ(Render(&output), 0);
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Init(), -22);
  EXPECT_EQ(Render(&output), -22);
  EXPECT_EQ(Platform().TakeEvents(), Lines{"open parser"});
  Unload();
  EXPECT_EQ(Platform().TakeEvents(), Lines{"close algo"});
}

TEST_F(Restart, DeInitEndsBothLibrariesWhateverTheyThrow) {
  for (const bool parser_throws : {true, false}) {
    for (const bool algo_throws : {true, false}) {
      if (parser_throws) Parser().during_call = [] { throw std::runtime_error("parser"); };
      if (algo_throws) Algo().during_call = [] { throw 1; };
      Platform().TakeEvents();
      EXPECT_EQ(Plugin().DeInit(), 0);
      EXPECT_EQ(Platform().TakeEvents(), (Lines{"parser DeInit", "algo DeInit"}));
      Parser().during_call = Algo().during_call = nullptr;
      velaricolor::HwConfigOutputParams output;
      EXPECT_EQ(Render(&output), -22);
      ASSERT_EQ(Init(), 0);
      EXPECT_TRUE(Merges());
    }
  }
}

TEST_F(Restart, DeInitReachesTheLibraryThatThereIs) {
  const auto modes = std::exchange(Parser().modes, {});
  ASSERT_EQ(Init(), 0);
  Platform().TakeEvents();
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Platform().TakeEvents(), Lines{"algo DeInit"});

  Parser().modes = modes;
  Platform().algo_opens = false;
  ASSERT_EQ(Init(), 0);
  Platform().TakeEvents();
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Platform().TakeEvents(), Lines{"parser DeInit"});
}

TEST_F(Restart, DeInitKeepsObjectsAndSettings) {
  EXPECT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Plugin().DeInit(), 0);
  EXPECT_EQ(Platform().TakeEvents(),
            (Lines{"parser DeInit", "algo DeInit", "parser DeInit", "algo DeInit"}));
  ASSERT_EQ(Init(), 0);
  EXPECT_TRUE(NeedsUpdate());
  EXPECT_EQ(Plugin().DeInit(), 0);
  Platform().TakeEvents();
  Unload();
  EXPECT_EQ(Platform().TakeEvents(),
            (Lines{"delete parser", "delete algo", "close algo", "close parser"}));
}

TEST_F(Restart, ColorStateOutlivesIt) {
  const auto again = [this] { return Plugin().DeInit() + Init(); };
  Algo().merged[0].r[1] = Algo().merged[1].r[1] = 8;
  ASSERT_EQ(Set(velaricolor::kVcColorTransform, velaricolor::ColorTransformMatrix{.matrix = {2}}),
            0);
  SetLtm({{}, {0, 3}, {}, {}});
  ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.5), 0);
  velaricolor::HwConfigOutputParams outputs[2];
  for (auto& output : outputs) {
    ASSERT_EQ(Render(&output), 0);
    ASSERT_EQ(again(), 0);
  }
  EXPECT_EQ(BytesOf(*PccOf(outputs[1])), BytesOf(*PccOf(outputs[0])));
  ASSERT_EQ(Algo().merges.size(), 2U);
  EXPECT_EQ(BytesOf(Algo().merges[1]), BytesOf(Algo().merges[0]));

  // That LTM was on is remembered too.
  ASSERT_EQ(Set(velaricolor::kVcColorTransform, velaricolor::ColorTransformMatrix()), 0);
  SetLtm({}, false);
  ASSERT_EQ(again(), 0);
  velaricolor::HwConfigOutputParams off;
  ASSERT_EQ(Render(&off), 0);
  EXPECT_EQ(NamesOf(off), "PostBlendPCC ");
}

}  // namespace
