// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/export/cube_table.h"

#include <algorithm>
#include <cmath>

#include "devkit/zelctl/blocks/tetrahedral.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;

constexpr int kMaxCode = 255;

std::array<GridPlace, 3> PlacesOf(const Vec3& signal, size_t side) {
  std::array<GridPlace, 3> places;
  for (size_t i = 0; i < 3; ++i) {
    const double position = signal[i] * static_cast<double>(side - 1);
    const size_t node = std::min(static_cast<size_t>(position), side - 2);
    places[i] = {node, position - static_cast<double>(node)};
  }
  return places;
}

// Sums up while colours are added.
class ErrorSum {
 public:
  void Add(const Vec3& actual, const Vec3& expected) {
    for (size_t i = 0; i < 3; ++i) {
      const double error = kMaxCode * std::abs(actual[i] - expected[i]);
      largest_ = std::max(largest_, error);
      sum_ += error;
    }
    count_ += 3;
  }

  SamplingError Result() const { return {largest_, sum_ / static_cast<double>(count_)}; }

 private:
  double largest_ = 0;
  double sum_ = 0;
  size_t count_ = 0;
};

}  // namespace

CubeTable::CubeTable(const BlockPipeline& pipeline, size_t side) : side_(side) {
  nodes_.reserve(side * side * side);
  const double last = static_cast<double>(side - 1);
  for (size_t blue = 0; blue < side; ++blue) {
    for (size_t green = 0; green < side; ++green) {
      for (size_t red = 0; red < side; ++red) {
        const Vec3 shown =
            pipeline.Apply({static_cast<double>(red) / last, static_cast<double>(green) / last,
                            static_cast<double>(blue) / last});
        nodes_.push_back({static_cast<float>(shown[0]), static_cast<float>(shown[1]),
                          static_cast<float>(shown[2])});
      }
    }
  }
}

Vec3 CubeTable::Tetrahedral(const Vec3& signal) const {
  return InterpolateTetrahedral(
      PlacesOf(signal, side_), [this](size_t red, size_t green, size_t blue) -> const auto& {
        return At(red, green, blue);
      });
}

Vec3 CubeTable::Trilinear(const Vec3& signal) const {
  const auto places = PlacesOf(signal, side_);
  Vec3 result = {};
  for (size_t corner = 0; corner < 8; ++corner) {
    std::array<size_t, 3> node;
    double weight = 1;
    for (size_t i = 0; i < 3; ++i) {
      const size_t step = corner >> i & 1;
      node[i] = places[i].node + step;
      weight *= step == 1 ? places[i].share : 1 - places[i].share;
    }
    const auto& values = At(node[0], node[1], node[2]);
    for (size_t i = 0; i < 3; ++i) result[i] += weight * static_cast<double>(values[i]);
  }
  return result;
}

std::vector<int> SampledCodes() {
  constexpr int kLastOfDark = 8;
  std::vector<int> codes;
  for (int code = 0, step = 0; code < kMaxCode; code += step) {
    codes.push_back(code);
    step = code < kLastOfDark ? 1 : step % 3 + 1;
  }
  codes.push_back(kMaxCode);
  return codes;
}

SamplingErrors MeasureSampling(const BlockPipeline& pipeline, const CubeTable& table) {
  ErrorSum tetrahedral;
  ErrorSum trilinear;
  size_t colors = 0;
  const auto add = [&](int red, int green, int blue) {
    const Vec3 signal = {static_cast<double>(red) / kMaxCode, static_cast<double>(green) / kMaxCode,
                         static_cast<double>(blue) / kMaxCode};
    const Vec3 expected = pipeline.Apply(signal);
    tetrahedral.Add(table.Tetrahedral(signal), expected);
    trilinear.Add(table.Trilinear(signal), expected);
    ++colors;
  };
  for (int code = 0; code <= kMaxCode; ++code) add(code, code, code);
  const std::vector<int> codes = SampledCodes();
  for (const int red : codes) {
    for (const int green : codes) {
      for (const int blue : codes) add(red, green, blue);
    }
  }
  return {tetrahedral.Result(), trilinear.Result(), colors};
}

}  // namespace zelctl
