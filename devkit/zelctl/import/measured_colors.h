// SPDX-License-Identifier: Apache-2.0

// The colours of a measurement: each signal once.
#pragma once

#include <string>
#include <vector>

#include "devkit/reference/panel/panel.h"
#include "devkit/zelctl/cgats/readings.h"

namespace zelctl {

struct MeasuredColor {
  tarn::color::Vec3 signal = {};
  tarn::color::Vec3 xyz = {};  // mean of the readings, in the file's unit
  std::vector<tarn::color::Vec3> readings;
};

// In rising order of red, then green, then blue signal.
std::vector<MeasuredColor> Averaged(const std::vector<Reading>& readings);

// The colour of a signal; null where it wasn't measured.
const MeasuredColor* Find(const std::vector<MeasuredColor>& colors,
                          const tarn::color::Vec3& signal);

// "RGB 100 0 50 %".
std::string SignalText(const tarn::color::Vec3& signal);

// The largest CIEDE2000 between a reading and the mean of its colour, a line; empty
// where no colour was measured twice. `white` is the reference white.
std::string SpreadText(const std::vector<MeasuredColor>& colors, const tarn::color::Vec3& white);

// CIEDE2000 between what the panel emits and what was measured, a line for all colours
// and one for the greys: mean, and largest with its signal.
std::vector<std::string> ResidualTexts(const std::vector<MeasuredColor>& colors,
                                       const tarn::reference::Panel& panel);

}  // namespace zelctl
