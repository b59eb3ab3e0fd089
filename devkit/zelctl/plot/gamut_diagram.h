// SPDX-License-Identifier: Apache-2.0

// The CIE 1931 xy diagram of a mode.
#pragma once

#include <string>
#include <vector>

#include "devkit/reference/panel/panel.h"
#include "devkit/zelctl/blocks/block_pipeline.h"

namespace zelctl {

struct GamutDiagram {
  tarn::color::Primaries panel;
  tarn::color::Primaries target;  // what the mode's content is encoded in
  // What the panel shows with all settings: the outline of the content's saturated
  // colours, and its white. Both are empty where all comes out black.
  std::vector<tarn::color::Chromaticity> shown;
  std::vector<tarn::color::Chromaticity> shown_white;
};

GamutDiagram MakeGamutDiagram(const tarn::reference::Panel& panel,
                              const tarn::reference::Target& target, const BlockPipeline& pipeline);

// gnuplot's commands for one plot.
std::string GamutPlot(const GamutDiagram& diagram);

}  // namespace zelctl
