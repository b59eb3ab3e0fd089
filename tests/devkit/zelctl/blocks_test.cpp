// SPDX-License-Identifier: Apache-2.0

// Colour blocks as functions, on records made by hand, and the gamut that they make.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <stdexcept>

#include "devkit/zelctl/plot/gamut_diagram.h"
#include "devkit/zelctl/plot/spectral_locus.h"

namespace {

using tarn::color::Chromaticity;
using tarn::reference::GamutLut;
using velaricolor::HwConfigOutputParams;
using velaricolor::PccPostBlendConfig;
using zelctl::BlockPipeline;

template <typename T>
HwConfigOutputParams Block(const std::string& name, const T& record) {
  return {
      .payloads = {{.hw_block = name, .payload = std::make_shared<T>(record), .len = sizeof(T)}}};
}

HwConfigOutputParams Igc(const std::array<std::vector<uint32_t>, 3>& tables) {
  velaricolor::GammaPostBlendConfig record;
  record.enable = true;
  record.c0 = tables[0];
  record.c1 = tables[1];
  record.c2 = tables[2];
  return Block("PostBlendIGC", record);
}

HwConfigOutputParams Gamut(const GamutLut& lut) {
  velaricolor::GamutPostBlendConfig record = {.enable = true, .lut_data = {}};
  std::memcpy(record.lut_data.data(), &lut, sizeof lut);
  return Block("PostBlendGamut", record);
}

TEST(Blocks, ComputeWithTheirOwnFigures) {
  const auto [r, g, b] = BlockPipeline(Igc({{{0, 3}, {3, 0}, {1}}}), 2, 10).Apply({0, 0.25, 0});
  EXPECT_EQ(r, 0);
  EXPECT_DOUBLE_EQ(g, 0.75);
  EXPECT_DOUBLE_EQ(b, 1.0 / 3);
  const PccPostBlendConfig offset = {.enable = true, .coeffs = {.r = {51, 0.5}}};
  EXPECT_DOUBLE_EQ(zelctl::ApplyPcc(offset, {0.4, 1, 1})[0], 0.4);
}

// Nodes hold the inverse colour, but in one corner.
TEST(Blocks, GamutTableIsReadTetrahedrallyOnASquaredAxis) {
  GamutLut lut = {.bit_depth = 8, .nodes = {}};
  const auto code = [](size_t place) { return uint64_t{255} - place * place * 255 / 256; };
  for (size_t node = 0; node < lut.nodes.size(); ++node) {
    lut.nodes[node] = {code(node / 289), code(node / 17 % 17), code(node % 17)};
  }
  lut.nodes[tarn::reference::NodeIndex(16, 15, 15)] = {0, 0, 255};
  const zelctl::GamutBlock block(Gamut(lut));
  const double low = 225.0 / 256;  // the light of node 15
  const auto mix = [low](double share) { return low + share * (1 - low); };
  const struct {
    tarn::color::Vec3 light;
    tarn::color::Vec3 codes;  // of 255
  } cases[] = {
      {{1, 0, 0.25}, {0, 255, 192}},
      {{1.5, -1, 1.0 / 512}, {0, 255, 255}},  // clipped
      {{mix(0.5), mix(0.5), mix(0.5)}, {15.5, 15.5, 15.5}},
      {{1, low, low}, {0, 0, 255}},
      // Half of the odd corner, a quarter each of those before and after it.
      {{mix(0.75), mix(0.25), low}, {7.75, 7.75, 143}},
      // By way of blue the odd corner isn't met.
      {{mix(0.5), low, mix(0.75)}, {15.5, 31, 7.75}},
  };
  for (const auto& test : cases) {
    const auto found = block.Apply(test.light);
    for (size_t i = 0; i < 3; ++i) {
      EXPECT_NEAR(255 * found[i], test.codes[i], 1e-9) << test.light[0] << ", channel " << i;
    }
  }
}

std::string Problem(const HwConfigOutputParams& output) {
  try {
    BlockPipeline(output, 2, 10).Apply({1, 1, 1});
  } catch (const std::runtime_error& e) {
    return e.what();
  }
  return "";
}

TEST(Blocks, UnusableRecordsAreRefused) {
  GamutLut large = {.bit_depth = 12, .nodes = {}};
  large.nodes.back()[2] = 4096;
  const GamutLut even = {.bit_depth = 12, .axis = 0, .nodes = {}};
  const PccPostBlendConfig huge = {.enable = true, .coeffs = {.r = {0, 1e308, -1e308}}};
  EXPECT_EQ(Problem(Gamut(large)), "PostBlendGamut: its table is not of the layout in gamut_lut.h");
  EXPECT_EQ(Problem(Gamut(even)), Problem(Gamut(large)));
  EXPECT_EQ(Problem(Igc({{{1}, {}, {1}}})), "PostBlendIGC c1: 0 entries, which is no table");
  EXPECT_EQ(Problem(Igc({{{0}, {0}, {4, 3}}})), "PostBlendIGC c2: code 4 in a table of 2 bits");
  EXPECT_EQ(Problem(Block("PostBlendPCC", huge)), "PostBlendPCC: its coefficients are too large");
  EXPECT_EQ(Problem({.payloads = {{.hw_block = "PostBlendGC"}}}),
            "PostBlendGC: its record is missing or of another version");
}

bool Holds(const std::vector<Chromaticity>& points, const Chromaticity& point) {
  return std::any_of(points.begin(), points.end(), [&point](const Chromaticity& other) {
    return std::hypot(other.x - point.x, other.y - point.y) < 1e-9;
  });
}

TEST(GamutDiagram, ShowsWhatTheBlocksLeaveOfThePanel) {
  tarn::reference::Panel panel;
  panel.primaries = tarn::color::kBt2020;
  panel.luminance.peak = 500;
  for (const uint32_t green : {0U, 3U}) {
    const BlockPipeline pipeline(Igc({{{0, 3}, {0, green}, {0, 3}}}), 2, 10);
    const auto diagram = MakeGamutDiagram(panel, {}, pipeline);
    EXPECT_TRUE(Holds(diagram.shown, panel.primaries.red));
    EXPECT_TRUE(Holds(diagram.shown, panel.primaries.blue));
    EXPECT_EQ(Holds(diagram.shown, panel.primaries.green), green == 3);
    EXPECT_EQ(Holds(diagram.shown_white, panel.primaries.white), green == 3);
    EXPECT_LT(diagram.shown.size(), 50) << "corners, and what rounding makes of sides";
  }
}

// ITU-R BT.2020's primaries are monochromatic: 630, 532 and 467 nm.
TEST(SpectralLocus, HoldsTheMonochromaticPrimaries) {
  const auto& [red, green, blue, white] = tarn::color::kBt2020;
  for (const auto& [nanometres, xy] : {std::pair(630U, red), {532U, green}, {467U, blue}}) {
    const auto& low = zelctl::kSpectralLocus.at((nanometres - 380) / 5);
    const auto& high = zelctl::kSpectralLocus.at((nanometres - 380) / 5 + 1);
    const double share = nanometres % 5 / 5.0;
    EXPECT_NEAR(std::lerp(low.xy.x, high.xy.x, share), xy.x, 0.0015);
    EXPECT_NEAR(std::lerp(low.xy.y, high.xy.y, share), xy.y, 0.0015);
  }
}

}  // namespace
