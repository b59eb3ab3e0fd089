// The colour blocks as functions, on records made by hand.
#include <gtest/gtest.h>

#include <cstring>
#include <functional>
#include <memory>
#include <stdexcept>

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "plugin/names.h"

namespace {

using tarn::color::Vec3;
using tarn::reference::GamutLut;
using velaricolor::GamutPostBlendConfig;
using velaricolor::HwConfigOutputParams;
using velaricolor::PccPostBlendConfig;

template <typename T>
void Add(const std::string& name, const T& record, HwConfigOutputParams* output) {
  output->payloads.push_back(
      {.hw_block = name, .payload = std::make_shared<T>(record), .len = sizeof(T)});
}

GamutPostBlendConfig Record(const GamutLut& lut) {
  GamutPostBlendConfig record = {.enable = true, .lut_data = {}};
  std::memcpy(record.lut_data.data(), &lut, sizeof lut);
  return record;
}

// Multilinear in red, green and blue, so that interpolation is exact.
Vec3 Twisted(const Vec3& c) { return {c[2], c[0] * c[1], (1 - c[0]) * c[1] * c[2]}; }

GamutLut TwistedLut() {
  GamutLut lut = {.bit_depth = 32, .nodes = {}};
  for (size_t r = 0; r < 17; ++r) {
    for (size_t g = 0; g < 17; ++g) {
      for (size_t b = 0; b < 17; ++b) {
        const Vec3 value = Twisted({static_cast<double>(r) / 16, static_cast<double>(g) / 16,
                                    static_cast<double>(b) / 16});
        for (size_t i = 0; i < 3; ++i) {
          lut.nodes[tarn::reference::NodeIndex(r, g, b)][i] =
              static_cast<uint64_t>(value[i] * 4294967295.0);
        }
      }
    }
  }
  return lut;
}

void ExpectNear(const Vec3& actual, const Vec3& expected, double tolerance) {
  for (size_t i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "channel " << i;
}

TEST(Blocks, GamutTableIsInterpolated) {
  HwConfigOutputParams output;
  Add(velaricolor::kPostBlendGamut, Record(TwistedLut()), &output);
  const zelctl::GamutBlock block(output);
  for (const Vec3& color : {Vec3{0, 0, 0}, Vec3{1, 1, 1}, Vec3{0.123, 0.777, 0.4}, Vec3{1, 0.5, 0},
                            Vec3{0.0625, 1, 0.999}}) {
    ExpectNear(block.Apply(color), Twisted(color), 1e-9);
  }
}

TEST(Blocks, EachTakesWhatTheOneBeforeGave) {
  HwConfigOutputParams output;
  velaricolor::GammaPostBlendConfig igc;
  igc.enable = true;
  igc.c0 = {0, 1023};
  igc.c1 = {0, 0, 1023};  // its first half is black
  igc.c2 = {1023, 0};
  velaricolor::GammaPostBlendConfig gc;  // axis: the root of light
  gc.enable = true;
  gc.c0 = gc.c1 = gc.c2 = {0, 255};
  Add(velaricolor::kPostBlendIGC, igc, &output);
  Add(velaricolor::kPostBlendPCC,
      PccPostBlendConfig{.enable = true,
                         .coeffs = {.r = {51, 0.5}, .g = {0, 1, 1}, .b = {0, -1, 0, 0.5}}},
      &output);
  Add(velaricolor::kPostBlendGC, gc, &output);
  // IGC: 0.4, 0.6, 0.8; PCC: 0.2 + 0.2, 1.0, 0.4 - 0.4.
  ExpectNear(zelctl::BlockPipeline(output, 10, 8).Apply({0.4, 0.8, 0.2}), {0.632455532, 1, 0},
             1e-7);
}

TEST(Blocks, DisabledOrAbsentOnesLetColoursPass) {
  HwConfigOutputParams disabled;
  Add(velaricolor::kPostBlendGamut, GamutPostBlendConfig{.lut_data = {}}, &disabled);
  Add(velaricolor::kPostBlendPCC, PccPostBlendConfig{.coeffs = {}}, &disabled);
  Add(velaricolor::kPostBlendGC, velaricolor::GammaPostBlendConfig(), &disabled);
  for (const HwConfigOutputParams& output : {HwConfigOutputParams(), disabled}) {
    const zelctl::BlockPipeline pipeline(output, 12, 10);
    ExpectNear(pipeline.Apply({0.1, 0.5, 1.5}), {0.1, 0.5, 1}, 1e-15);
  }
}

TEST(Blocks, UnusableRecordsAreRefused) {
  GamutLut other_side = TwistedLut();
  other_side.side = 9;
  GamutLut too_large = TwistedLut();
  too_large.bit_depth = 12;
  PccPostBlendConfig other_version = {.enable = true, .coeffs = {}};
  other_version.version = 1;
  const std::function<void(HwConfigOutputParams*)> cases[] = {
      [&](auto* output) { Add(velaricolor::kPostBlendGamut, Record(other_side), output); },
      [&](auto* output) { Add(velaricolor::kPostBlendGamut, Record(too_large), output); },
      [&](auto* output) { Add(velaricolor::kPostBlendPCC, other_version, output); },
      [&](auto* output) { output->payloads.push_back({.hw_block = velaricolor::kPostBlendIGC}); },
  };
  for (const auto& add : cases) {
    HwConfigOutputParams output;
    add(&output);
    EXPECT_THROW(zelctl::BlockPipeline(output, 12, 10), std::runtime_error);
  }
  const PccPostBlendConfig huge = {.enable = true, .coeffs = {.r = {0, 1e308, -1e308}}};
  EXPECT_THROW(zelctl::ApplyPcc(huge, {1, 1, 1}), std::runtime_error);
}

}  // namespace
