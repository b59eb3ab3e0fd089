// SPDX-License-Identifier: Apache-2.0

// Content codes as a meter's program knows them.
#pragma once

#include "devkit/zelctl/report/patches.h"

namespace zelctl {

inline constexpr double kFullDevice = 100;
inline constexpr ContentCode kFullWhite = {255, 255, 255};

// From 0 to kFullDevice per channel.
inline tarn::color::Vec3 DeviceValues(const ContentCode& code) {
  tarn::color::Vec3 values = SignalOfCode(code);
  for (double& value : values) value *= kFullDevice;
  return values;
}

}  // namespace zelctl
