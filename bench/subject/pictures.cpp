// SPDX-License-Identifier: Apache-2.0

// A picture's pixels through the blocks of a mode, against the blocks themselves, which
// compute one colour after the other.

#include <cmath>
#include <optional>
#include <random>

#include "bench/subject/end_to_end.h"
#include "bench/subject/pairs.h"
#include "devkit/zelctl/picture/pixel_transform.h"
#include "handlers/post_blend_hw_config.h"

namespace {

constexpr size_t kPixels = size_t{1} << 18;
constexpr double kMaxSample = 255;

std::optional<zelctl::BlockPipeline> g_pipeline;
std::optional<zelctl::PixelTransform> g_transform;
std::vector<uint8_t> g_samples;
std::vector<uint8_t> g_shown;

// Soft waves with some noise, as photographs are.
void Paint() {
  std::minstd_rand random(1);
  g_samples.resize(3 * kPixels);
  for (size_t i = 0; i < g_samples.size(); ++i) {
    constexpr double kMiddle = 128;
    constexpr double kSwing = 110;
    const double wave = std::sin(static_cast<double>(i) * (1 + static_cast<double>(i % 3)) / 1e4);
    const double noise = static_cast<double>(random() % 13);
    g_samples[i] = static_cast<uint8_t>(kMiddle + kSwing * wave + noise);
  }
}

void SetUp(size_t mode) {
  Paint();
  RenderReference(mode, [](const auto& output) {
    g_pipeline.emplace(output, zeltarn::kDefaultInverseGamma.bit_depth,
                       zeltarn::kDefaultGamma.bit_depth);
  });
  g_transform.emplace(*g_pipeline, 8);
}

void TearDown() {
  g_transform.reset();
  g_pipeline.reset();
}

void Quickly(unsigned calls) {
  for (; calls > 0; --calls) {
    g_shown = g_samples;
    g_transform->Apply(3, std::span(g_shown));
    Keep(g_shown.data());
  }
}

void OneByOne(unsigned calls) {
  for (; calls > 0; --calls) {
    g_shown = g_samples;
    for (size_t at = 0; at < g_shown.size(); at += 3) {
      tarn::color::Vec3 color;
      for (size_t i = 0; i < 3; ++i) color[i] = g_shown[at + i] / kMaxSample;
      color = g_pipeline->Apply(color);
      for (size_t i = 0; i < 3; ++i) {
        g_shown[at + i] = static_cast<uint8_t>(std::lround(kMaxSample * color[i]));
      }
    }
    Keep(g_shown.data());
  }
}

}  // namespace

std::vector<ZelPair> PicturePairs() {
  constexpr size_t kSrgb = 1;       // curves and a matrix
  constexpr size_t kDisplayP3 = 2;  // and the gamut table
  constexpr double kTarget = 0.5;
  const auto pair = [](const char* name, size_t mode) {
    return ZelPair{name,  kTarget, kMedian,  1,        kAnyAllocations,
                   SetUp, Quickly, OneByOne, TearDown, mode};
  };
  return {pair("262144 pixels, matrix", kSrgb), pair("262144 pixels, gamut table", kDisplayP3)};
}
