// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/picture/output_codes.h"

#include <algorithm>
#include <cmath>

namespace zelctl {

OutputCodes::OutputCodes(const GammaBlock& gc, size_t channel, double max_code)
    : gc_(gc), channel_(channel), max_code_(max_code) {
  dark_ = Computed(0);
  bright_ = Computed(1);
  // Finer codes would leave hardly a cell to one of them.
  constexpr double kCoarse = 255;
  if (max_code > kCoarse) return;
  const uint64_t end = std::bit_cast<uint64_t>(1.0) >> kShift;
  cells_.resize(end - kFirst);
  for (size_t cell = 0; cell < cells_.size(); ++cell) {
    const auto edge = [cell](size_t after) {
      return std::bit_cast<double>((kFirst + cell + after) << kShift);
    };
    cells_[cell] = CodeOfCell(edge(0), edge(1));
  }
}

double OutputCodes::Output(double light) const { return max_code_ * gc_.ApplyTo(channel_, light); }

uint16_t OutputCodes::Computed(double light) const {
  return static_cast<uint16_t>(std::lround(Output(light)));
}

// Between its entries a table goes straight, so that they and the cell's ends bound what
// is in the cell.
uint32_t OutputCodes::CodeOfCell(double low, double high) const {
  double least = std::min(Output(low), Output(high));
  double most = std::max(Output(low), Output(high));
  if (!gc_.Passes()) {
    const size_t entries = gc_.Tables()[channel_].size();
    const double last = static_cast<double>(entries - 1);
    const auto first = static_cast<size_t>(std::sqrt(low) * last);
    const size_t end = std::min(static_cast<size_t>(std::sqrt(high) * last) + 2, entries);
    for (size_t i = first; i < end; ++i) {
      const double light = tarn::reference::AxisInput(tarn::reference::GammaAxis::kGc, i, entries);
      if (light < low || light > high) continue;
      least = std::min(least, Output(light));
      most = std::max(most, Output(light));
    }
  }
  constexpr double kRounding = 1e-6;  // far more than the arithmetic's
  const auto code = std::lround(least - kRounding);
  return code >= 0 && code == std::lround(most + kRounding) ? static_cast<uint32_t>(code) : kMixed;
}

}  // namespace zelctl
