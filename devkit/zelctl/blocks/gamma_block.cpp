// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/blocks/gamma_block.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "convert/gamut_gamma_config.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "plugin/names.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::reference::GammaAxis;

void Check(const std::vector<uint32_t>& table, uint32_t bit_depth, const std::string& place) {
  const auto refuse = [&place](const std::string& reason) {
    throw std::runtime_error(place + ": " + reason);
  };
  if (bit_depth < 1 || bit_depth > tarn::reference::kMaxBitDepth) {
    refuse("codes of " + std::to_string(bit_depth) + " bits");
  }
  if (table.size() < tarn::reference::kMinGammaEntries) {
    refuse(std::to_string(table.size()) + " entries, which is no table");
  }
  const uint32_t largest = *std::max_element(table.begin(), table.end());
  if (largest > tarn::reference::MaxCode(bit_depth)) {
    refuse("code " + std::to_string(largest) + " in a table of " + std::to_string(bit_depth) +
           " bits");
  }
}

}  // namespace

GammaBlock::GammaBlock(GammaAxis axis, uint32_t bit_depth,
                       const velaricolor::HwConfigOutputParams& output)
    : axis_(axis), bit_depth_(bit_depth) {
  const std::string& name =
      axis == GammaAxis::kIgc ? velaricolor::kPostBlendIGC : velaricolor::kPostBlendGC;
  const auto* record = EnabledRecord<velaricolor::GammaPostBlendConfig>(output, name);
  if (record == nullptr) return;
  tables_ = {record->c0, record->c1, record->c2};
  for (size_t i = 0; i < 3; ++i) Check(tables_[i], bit_depth, name + " c" + std::to_string(i));
}

Vec3 GammaBlock::Apply(const Vec3& input) const {
  return {ApplyTo(0, input[0]), ApplyTo(1, input[1]), ApplyTo(2, input[2])};
}

double GammaBlock::ApplyTo(size_t channel, double input) const {
  return Passes() ? std::clamp(input, 0.0, 1.0)
                  : tarn::reference::LookUp(axis_, tables_[channel], bit_depth_, input);
}

}  // namespace zelctl
