// SPDX-License-Identifier: Apache-2.0

// Memory runs out, at every single allocation of each host call, the libraries'
// included.
#include <algorithm>
#include <cstdlib>
#include <functional>
#include <new>
#include <sstream>

#include "convert/blob_config.h"
#include "convert/gamut_gamma_config.h"
#include "tests/support/allocations.h"
#include "tests/support/bytes.h"
#include "tests/support/pcc.h"

using velaricolor::ColorModeList;
using velaricolor::HwConfigOutputParams;

// Of the whole program: the plug-in's and its standard library's calls end here.
__attribute__((visibility("default"))) void* operator new(size_t size) {
  void* const memory = AllocationFails() ? nullptr : std::malloc(std::max(size, size_t{1}));
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
__attribute__((visibility("default"))) void operator delete(void* memory) noexcept {
  std::free(memory);
}
__attribute__((visibility("default"))) void operator delete(void* memory,
                                                            size_t /*size*/) noexcept {
  std::free(memory);
}

namespace {

const std::string kLong(100, 'x');  // a text with memory of its own

tarn::HwConfigPayload Table(const std::string& name) {
  auto record = std::make_shared<tarn::GammaPostBlendConfig>();
  record->c0 = record->c1 = record->c2 = std::vector<uint32_t>(1024, 7);
  return Block(name, record);
}

std::string Shown(const HwConfigOutputParams& output) {
  std::ostringstream shown;
  for (const auto& [version, name, record, len] : output.payloads) {
    shown << name << " " << len << " ";
    if (name == "PostBlendPCC") {
      shown << testing::PrintToString(BytesAt(record.get(), len));
    } else if (name == "PostBlendHdrBlob") {
      shown << static_cast<velaricolor::HdrBlobPostBlendConfig*>(record.get())->blob;
    } else {
      shown << static_cast<velaricolor::GammaPostBlendConfig*>(record.get())->c2.size();
    }
  }
  return shown.str();
}

class OutOfMemory : public PccTest {
 protected:
  struct HostCall {
    const char* name;
    bool allocates;
    std::function<int()> make;
  };

  void SetUp() override {
    Algo().merged[0].r[1] = Algo().merged[1].g[2] = 5;
    Parser().modes = {{.hw_assets = {kLong, kLong}, .label = kLong}, {.label = kLong + "2"}};
    Parser().dither = {Table("PostBlendGC"), Table("PostBlendIGC")};
    const auto blob = std::make_shared<tarn::HdrBlobPostBlendConfig>();
    blob->blob = kLong;
    ParserAnswers({{}, {1, 2, 3, 4}, {5, 6, 7, 8}, {9, 10, 11, 12}}, true);
    Parser().blocks.push_back(Block("PostBlendHdrBlob", blob));
    Parser().blocks.push_back(Table("PostBlendGC"));
  }

  void SetColors() {
    const velaricolor::ColorTransformMatrix transform = {.matrix = {2}};
    ASSERT_EQ(Set(velaricolor::kVcColorTransform, transform), 0);
    SetLtm({{}, {0, 2}, {0, 0, 3}, {0, 0, 0, 4}});
    ASSERT_EQ(Set(velaricolor::kVcDimmingPcc, 0.25), 0);
  }

  // A new object. Where `ltm_ended`, LTM's end is still to be noticed.
  void Prepare(bool ltm_ended) {
    output_ = {};  // while the library that made the records is there
    list_ = {};
    assets_ = Lines();
    SetUp();
    Start();
    SetColors();
    if (!ltm_ended) return;
    ASSERT_EQ(Set(velaricolor::kVcColorTransform, velaricolor::ColorTransformMatrix()), 0);
    ASSERT_EQ(Render(&output_), 0);
    output_ = {};
    SetLtm({}, false);
    Parser().blocks.erase(Parser().blocks.begin());
  }

  // What a host sees without changing anything.
  std::string Settings() {
    ColorModeList list;
    HwConfigOutputParams dither;
    std::ostringstream seen;
    seen << Get(velaricolor::kVcModesList, &list) << Get(velaricolor::kVcPbDitherHwConfig, &dither)
         << NeedsUpdate() << Shown(dither);
    for (const auto& mode : list.modes) seen << mode.label << mode.hw_assets.size();
    return seen.str();
  }
  // And what the calls so far, with a render at their end, have answered.
  std::string Answers() {
    const std::string answers = Settings() + Shown(output_) + testing::PrintToString(assets_) +
                                std::to_string(list_.modes.size());
    HwConfigOutputParams render;
    EXPECT_EQ(Render(&render), 0);
    return answers + Shown(render);
  }

  // How a call ends whose `nth` allocation fails.
  enum End { kThrew, kSucceeded, kNeedsFewer };
  static End RunOut(const std::function<int()>& call, int nth) {
    End end = kSucceeded;
    failing_allocation = nth;
    try {
      EXPECT_EQ(call(), 0);
    } catch (const std::bad_alloc&) {
      end = kThrew;
    }
    const bool failed = failing_allocation.exchange(0) == 0;
    EXPECT_TRUE(failed || end == kSucceeded) << "allocation " << nth;
    return failed ? end : kNeedsFewer;
  }

  void TryEveryAllocation(const HostCall& call, bool ltm_ended) {
    Prepare(ltm_ended);
    ASSERT_EQ(call.make(), 0);
    const std::string undisturbed = Answers();
    Prepare(ltm_ended);
    const std::string before = Settings();
    int nth = 1;
    for (End end; (end = RunOut(call.make, nth)) != kNeedsFewer; ++nth) {
      SCOPED_TRACE(nth);
      EXPECT_EQ(end, kThrew);
      // What the parser has been told is kept, as where the parser refuses it.
      const bool told = Platform().events.back().find("SetProperty") != std::string::npos;
      if (!told) EXPECT_EQ(Settings(), before);
    }
    EXPECT_EQ(nth > 1, call.allocates);
    EXPECT_EQ(Answers(), undisturbed);
  }

  ColorModeList list_;
  Lines assets_;
  HwConfigOutputParams output_;
};

TEST_F(OutOfMemory, InInitLeavesNothingHalfStarted) {
  Start();
  SetColors();
  const std::string undisturbed = Answers();
  const auto init = [this] { return Init(); };
  for (const bool again : {false, true}) {
    if (!again) Load();
    Platform().TakeEvents();
    int nth = 1;
    int without_merging = 0;
    for (End end; (end = RunOut(init, nth)) != kNeedsFewer; ++nth) {
      SCOPED_TRACE((again ? "again " : "") + std::to_string(nth));
      // Objects are gone before the next Init closes their libraries.
      const Lines events = Platform().TakeEvents();
      // A library that is optional does not fail Init.
      const bool in_algo = std::count(events.begin(), events.end(), "open algo") == 1;
      EXPECT_EQ(end, in_algo ? kSucceeded : kThrew);
      without_merging += in_algo ? 1 : 0;
      for (const std::string library : {"parser", "algo"}) {
        const auto made = std::find(events.begin(), events.end(), library + " factory 2 0");
        const bool gone = made != events.end() && (end == kThrew || library == "algo");
        EXPECT_EQ(std::count(made, events.end(), "delete " + library), gone ? 1 : 0);
      }
      ColorModeList list;
      EXPECT_EQ(Get(velaricolor::kVcModesList, &list), again || in_algo ? 0 : -22);
      EXPECT_EQ(list.modes.size(), in_algo ? 2U : 0U);
    }
    EXPECT_GT(nth, 10);
    EXPECT_GT(without_merging, 1);
    SetColors();
    EXPECT_EQ(Answers(), undisturbed);
  }
  Platform().TakeEvents();
  Unload();
  EXPECT_EQ(Platform().TakeEvents(),
            (Lines{"delete parser", "delete algo", "close algo", "close parser"}));
}

// Lists grow from 3 entries, blobs from nothing; names without a record get one.
TEST_F(OutOfMemory, InAnAnswerLeavesEachEntryOldOrNew) {
  const auto table = [](bool enable) {
    tarn::HwConfigPayload block = Table("PostBlendGC");
    static_cast<tarn::GammaPostBlendConfig*>(block.payload.get())->enable = enable;
    return block;
  };
  const auto blob = [](bool enable, const std::string& text) {
    const auto record = std::make_shared<tarn::GameBlobPostBlendConfig>();
    record->enable = enable;
    record->blob = text;
    return Block("PostBlendGameBlob", record);
  };
  const auto shown = [](const velaricolor::HwConfigPayload& entry) {
    std::ostringstream text;
    text << entry.len << " ";
    if (const auto* const record = entry.payload.get(); record == nullptr) {
      text << "none";
    } else if (entry.hw_block == "PostBlendHdrBlob") {
      text << static_cast<const velaricolor::HdrBlobPostBlendConfig*>(record)->blob;
    } else if (entry.hw_block == "PostBlendGameBlob") {
      const auto& game = *static_cast<const velaricolor::GameBlobPostBlendConfig*>(record);
      text << game.enable << game.blob;
    } else {
      const auto& gamma = *static_cast<const velaricolor::GammaPostBlendConfig*>(record);
      text << gamma.enable << gamma.c0.size() << " " << gamma.c1.size() << " " << gamma.c2.size();
    }
    return text.str();
  };
  const auto assets = [this] { return Run(velaricolor::kVcModeSwAssets, {}, &output_); };
  Lines before;
  Lines after;
  int kept = 0;
  End end = kThrew;
  for (int nth = 0; end != kNeedsFewer; ++nth) {  // the first time none fails
    SCOPED_TRACE(nth);
    output_ = {};
    Start();
    ASSERT_EQ(Set(velaricolor::kVcPostBlendGammaHwConfig,
                  velaricolor::PostBlendHwConfig{.num_of_entries = 3}),
              0);
    Parser().blocks = {table(false), blob(false, "")};
    Parser().blocks[0].len = Parser().blocks[1].len = 7;
    ASSERT_EQ(assets(), 0);
    for (const char* name : {"PostBlendIGC", "PostBlendHdrBlob"}) {
      output_.payloads.push_back({.hw_block = name, .len = 9});
    }
    ASSERT_EQ(Set(velaricolor::kVcPostBlendGammaHwConfig,
                  velaricolor::PostBlendHwConfig{.num_of_entries = 1024}),
              0);
    const auto hdr = std::make_shared<tarn::HdrBlobPostBlendConfig>();
    hdr->blob = kLong;
    Parser().blocks = {Table("PostBlendIGC"), Block("PostBlendHdrBlob", hdr), blob(true, kLong),
                       table(true)};
    if (before.empty()) {
      for (const auto& entry : output_.payloads) before.push_back(shown(entry));
      ASSERT_EQ(assets(), 0);
      for (const auto& entry : output_.payloads) after.push_back(shown(entry));
      continue;
    }
    end = RunOut(assets, nth);
    EXPECT_NE(end, kSucceeded);
    for (size_t i = 0; i < before.size(); ++i) {
      const std::string now = shown(output_.payloads.at(i));
      EXPECT_TRUE(now == before[i] || now == after[i]) << now;
      kept += now == before[i] ? 1 : 0;
    }
  }
  EXPECT_GT(kept, 0);
}

// A second copy would be for the parser.
TEST_F(OutOfMemory, DimensionsAreCopiedOnceWhereThereIsNoParser) {
  Parser().modes.clear();
  Start();
  const velaricolor::PostBlendHwConfig table = {.num_of_entries = 5,
                                                .attributes = {{kLong, true, {1, 2}}}};
  const auto set = [&] { return Set(velaricolor::kVcPostBlendGammaHwConfig, table); };
  EXPECT_EQ(RunOut(set, 2), kThrew) << "the list, then its name";
  EXPECT_EQ(RunOut(set, 3), kNeedsFewer);
}

TEST_F(OutOfMemory, InDeInitEndsItAllTheSame) {
  int nth = 1;
  do {
    Start();
    EXPECT_NE(RunOut([this] { return Plugin().DeInit(); }, nth), kThrew);
    EXPECT_EQ(Platform().TakeEvents(), (Lines{"parser DeInit", "algo DeInit"}));
    ColorModeList list;
    EXPECT_EQ(Get(velaricolor::kVcModesList, &list), -22);
  } while (++nth <= 3);
}

TEST_F(OutOfMemory, InACallLeavesWhatTheNextOneNeeds) {
  const velaricolor::ColorTransformMatrix transform = {.matrix = {3}};
  const velaricolor::PostBlendHwConfig table = {.num_of_entries = 5,
                                                .attributes = {{kLong, true, {1, 2}}}};
  const auto ltm = HostBlock({{}, {0, 9}, {}, {}}, true);
  bool flag = false;
  const HostCall calls[] = {
      {"factory", true, [&] { return Library().Create() == nullptr ? 1 : 0; }},
      {"transform", false, [&] { return Set(5, transform); }},
      {"gamut", true, [&] { return Set(6, table); }},
      {"gamma", true, [&] { return Set(7, table); }},
      {"inverse gamma", true, [&] { return Set(8, table); }},
      {"calibration", false, [&] { return Set(12, flag); }},
      {"ltm", false, [&] { return Set(13, *ltm); }},
      {"dimming", false, [&] { return Set(2055, 0.5); }},
      {"modes", true, [&] { return Get(1, &list_); }},
      {"needs update", false, [&] { return Get(2, &flag); }},
      {"tone map", false, [&] { return Get(9, &flag); }},
      {"dither", true, [&] { return Get(14, &output_); }},
      {"hardware assets", true, [&] { return Get(2048, &assets_); }},
      {"dimming support", false, [&] { return Get(2054, &flag); }},
      {"software assets", true, [&] { return Run(velaricolor::kVcModeSwAssets, {}, &output_); }},
      {"render", true, [&] { return Render(&output_); }},
  };
  for (const HostCall& call : calls) {
    for (const bool ltm_ended : {false, true}) {
      SCOPED_TRACE(call.name + std::string(ltm_ended ? " after ltm" : ""));
      TryEveryAllocation(call, ltm_ended);
    }
  }
}

}  // namespace
