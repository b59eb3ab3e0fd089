// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/picture/pixel_transform.h"

#include <algorithm>
#include <cmath>

#include "devkit/reference/pcc_polynomial.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::reference::kPccRange;

constexpr size_t kAffineTerms = 4;

bool IsAffine(const PccCopy& pcc) {
  if (!pcc || !pcc->enable) return false;
  const auto affine = [](const zeltarn::PccRow& row) {
    return std::all_of(row.begin(), row.end(), [](double c) { return std::isfinite(c); }) &&
           std::all_of(row.begin() + kAffineTerms, row.end(), [](double c) { return c == 0; });
  };
  return affine(pcc->coeffs.r) && affine(pcc->coeffs.g) && affine(pcc->coeffs.b);
}

// In the order of the general form, so that both round alike.
double AffineRow(const zeltarn::PccRow& row, const Vec3& rgb) {
  double sum = row[0];
  for (size_t i = 0; i < 3; ++i) sum += row[i + 1] * rgb[i];
  return sum / kPccRange;
}

}  // namespace

PixelTransform::PixelTransform(const BlockPipeline& pipeline, uint32_t bit_depth)
    : pipeline_(pipeline),
      affine_(IsAffine(pipeline.Pcc())),
      codes_{OutputCodes(pipeline.Gc(), 0, tarn::reference::MaxCode(bit_depth)),
             OutputCodes(pipeline.Gc(), 1, tarn::reference::MaxCode(bit_depth)),
             OutputCodes(pipeline.Gc(), 2, tarn::reference::MaxCode(bit_depth))} {
  const size_t codes = size_t{1} << bit_depth;
  const bool table = pipeline.Gamut().Table() != nullptr;
  for (size_t i = 0; i < 3; ++i) {
    for (size_t code = 0; code < codes; ++code) {
      const double signal = static_cast<double>(code) / static_cast<double>(codes - 1);
      const double light = pipeline.Igc().ApplyTo(i, signal);
      if (table) {
        places_[i].push_back(GamutBlock::PlaceOf(light));
      } else {
        light_[i].push_back(light);
      }
    }
  }
}

template <typename Sample>
Vec3 PixelTransform::Light(const Sample* pixel) const {
  if (light_[0].empty()) {
    return pipeline_.Gamut().Apply(
        std::array{places_[0][pixel[0]], places_[1][pixel[1]], places_[2][pixel[2]]});
  }
  return {light_[0][pixel[0]], light_[1][pixel[1]], light_[2][pixel[2]]};
}

Vec3 PixelTransform::Shown(const Vec3& light) const {
  if (affine_) {
    const Vec3 rgb = {kPccRange * light[0], kPccRange * light[1], kPccRange * light[2]};
    const pcc_coeff_data& pcc = pipeline_.Pcc()->coeffs;
    const Vec3 shown = {AffineRow(pcc.r, rgb), AffineRow(pcc.g, rgb), AffineRow(pcc.b, rgb)};
    if (std::isfinite(shown[0] + shown[1] + shown[2])) return shown;
  }
  return ApplyPcc(pipeline_.Pcc(), light);
}

template <typename Sample>
void PixelTransform::ApplyToAll(size_t channels, std::span<Sample> samples) const {
  for (size_t at = 0; at < samples.size(); at += channels) {
    Sample* pixel = &samples[at];
    const Vec3 shown = Shown(Light(pixel));
    for (size_t i = 0; i < 3; ++i) pixel[i] = static_cast<Sample>(codes_[i].Code(shown[i]));
  }
}

void PixelTransform::Apply(size_t channels, std::span<uint8_t> samples) const {
  ApplyToAll(channels, samples);
}

void PixelTransform::Apply(size_t channels, std::span<uint16_t> samples) const {
  ApplyToAll(channels, samples);
}

}  // namespace zelctl
