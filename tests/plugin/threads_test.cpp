// SPDX-License-Identifier: Apache-2.0

// Host threads that call everything at once, Init and DeInit among it.
#include <atomic>
#include <thread>

#include "tests/support/pcc.h"

using velaricolor::HwConfigOutputParams;

namespace {

constexpr int kThreads = 4;
constexpr int kRounds = 150;
constexpr int kNotInitialised = -22;

pcc_coeff_data Diagonal(double value) {
  return {.r = {0, value}, .g = {0, 0, value}, .b = {0, 0, 0, value}};
}

class Threads : public PccTest {
 protected:
  // What one thread holds; every call is made from every thread.
  struct Host {
    velaricolor::ColorModeList list;
    Lines assets;
    HwConfigOutputParams output;
    bool flag = false;
  };

  void SetUp() override {
    Platform().algo_opens = false;  // the product carries all settings through
    ParserAnswers(Diagonal(2), true);
    Parser().dither = Parser().blocks;
    Parser().during_call = [this] {
      if (inside_.exchange(true)) ++overlaps_;
      std::this_thread::yield();
      inside_ = false;
    };
    Start();
  }

  // Settings come in two kinds, so that a half-written one would show.
  std::vector<int> CallEverything(Host* host, int round) {
    const bool odd = round % 2 != 0;
    velaricolor::ColorTransformMatrix transform;
    for (const size_t i : {0U, 5U, 10U}) transform.matrix[i] = odd ? 3 : 5;
    const velaricolor::PostBlendHwConfig table = {.num_of_entries = odd ? 4U : 5U,
                                                  .attributes = {{"bits", true, {1, 2}}}};
    host->list = {};
    const int listed = Get(velaricolor::kVcModesList, &host->list);
    std::vector<int> results = {
        listed,
        Set(velaricolor::kVcColorTransform, transform),
        Set(velaricolor::kVcPostBlendGamutHwConfig, table),
        Set(velaricolor::kVcPostBlendGammaHwConfig, table),
        Set(velaricolor::kVcPostBlendInverseGammaHwConfig, table),
        Set(velaricolor::kVcDisplayCalibrationMode, odd),
        Set(velaricolor::kVcLtmPccConfig, *HostBlock(Diagonal(odd ? 11 : 13), odd)),
        Set(velaricolor::kVcDimmingPcc, odd ? 0.5 : 0.25),
        Get(velaricolor::kVcNeedsUpdate, &host->flag),
        Get(velaricolor::kVcSupportToneMap, &host->flag),
        Get(velaricolor::kVcDimmingSupport, &host->flag),
        Get(velaricolor::kVcPbDitherHwConfig, &host->output),
        Get(velaricolor::kVcSupportHwAssets, &host->assets),
        Run(velaricolor::kVcModeSwAssets, {}, &host->output),
        Render(&host->output),
    };
    if (results.back() == 0) {
      const pcc_coeff_data& seen = PccOf(host->output)->coeffs;
      EXPECT_TRUE(seen.r[1] == seen.g[2] && seen.g[2] == seen.b[3]) << "half of a setting";
    }
    if (listed == 0) EXPECT_EQ(host->list.modes.size(), 1U);
    if (round % 8 == 3) EXPECT_EQ(Plugin().DeInit(), 0);
    if (round % 4 == 0) EXPECT_EQ(Init(), 0);
    return results;
  }

  std::atomic<bool> inside_ = false;
  std::atomic<int> overlaps_ = 0;  // calls of the parser while another was under way
};

TEST_F(Threads, TakeTurnsAndSeeWholeSettings) {
  std::vector<Host> hosts(kThreads);
  std::vector<std::thread> threads;
  threads.reserve(hosts.size());
  for (Host& host : hosts) {
    threads.emplace_back([&, this] {
      for (int round = 0; round < kRounds; ++round) {
        for (const int result : CallEverything(&host, round)) {
          EXPECT_TRUE(result == 0 || result == kNotInitialised) << result;
        }
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  EXPECT_EQ(overlaps_, 0);

  EXPECT_EQ(Init(), 0);
  for (const int result : CallEverything(&hosts[0], 1)) EXPECT_EQ(result, 0);
}

}  // namespace
