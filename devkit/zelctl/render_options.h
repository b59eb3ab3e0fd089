// SPDX-License-Identifier: Apache-2.0

// What the commands that render a mode set on the plug-in first.
#pragma once

#include <optional>
#include <string>

#include "devkit/zelctl/host_session.h"
#include "handlers/color_transform_matrix.h"
#include "handlers/post_blend_hw_config.h"
#include "pcc/pcc_config.h"

namespace zelctl {

// The table size of one block; what is not given keeps the usual value.
struct TableSize {
  const char* name;
  velaricolor::VcProperty property;
  zeltarn::TableDimensions usual;
  uint32_t max_entries;
  std::optional<uint32_t> entries = {};
  std::optional<uint32_t> bits = {};

  uint32_t BitDepth() const { return bits.value_or(usual.bit_depth); }
};

struct RenderOptions {
  TableSize igc = {"igc", velaricolor::kVcPostBlendInverseGammaHwConfig,
                   zeltarn::kDefaultInverseGamma, zeltarn::kMaxGammaEntries};
  TableSize gc = {"gc", velaricolor::kVcPostBlendGammaHwConfig, zeltarn::kDefaultGamma,
                  zeltarn::kMaxGammaEntries};
  TableSize gamut = {"gamut", velaricolor::kVcPostBlendGamutHwConfig, zeltarn::kDefaultGamut,
                     UINT32_MAX};
  bool calibration = false;
  std::optional<velaricolor::ColorTransformMatrix> color_transform;
  std::optional<velaricolor::PccPostBlendConfig> ltm;
  std::optional<double> dimming;

  // The colour settings as the user wrote them; empty: not given.
  std::string color_transform_text;
  std::string ltm_path;
  std::string dimming_text;
};

// "colour transform night:3400, LTM ltm.json, dimming 0.6", or empty.
std::string SettingsText(const RenderOptions& options);

// A factor on all light. Says so on standard error where it is none that dims; the plug-in
// takes any. Throws UsageError for what is no number.
double ParseDimming(const std::string& text);

// The settings that do not concern the PCC block.
void ApplySizesAndNotifications(const RenderOptions& options, HostSession* session);

}  // namespace zelctl
