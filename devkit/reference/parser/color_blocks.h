// The blocks of a mode that are computed from the panel's calibration.
#pragma once

#include <cstdint>

#include "devkit/reference/panel/panel.h"

namespace tarn::reference {

// Dimensions of a look-up table, set by the host.
struct TableSize {
  uint32_t entries;
  uint32_t bit_depth;
};

// Those of a device whose host sets none; the plug-in starts with the same.
struct Dimensions {
  TableSize igc = {257, 12};
  TableSize gc = {1024, 10};
  TableSize gamut = {17, 12};
};

HwConfigPayload GamutBlock(const Panel& panel, const Target& target, const TableSize& size);
HwConfigPayload IgcBlock(const Panel& panel, const Target& target, const TableSize& size);
HwConfigPayload GcBlock(const Panel& panel, const TableSize& size);
HwConfigPayload PccBlock(const Panel& panel, const Target& target);

}  // namespace tarn::reference
