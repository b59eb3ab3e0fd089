// SPDX-License-Identifier: Apache-2.0

// The picture of a mode: its plots laid out on one page.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/blocks/pcc_block.h"
#include "devkit/zelctl/plot/gamut_diagram.h"

namespace zelctl {

enum class PlotKind { kAll, kGamut, kCurves, kPcc };

// Whether it shows the gamut diagram.
constexpr bool HasGamut(PlotKind kind) {
  return kind == PlotKind::kAll || kind == PlotKind::kGamut;
}

struct ModePlot {
  std::string title;     // of the mode
  std::string subtitle;  // panel and settings; below where one line is too short
  BlockPipeline pipeline;
  std::vector<PccStep> pcc;
  std::optional<GamutDiagram> gamut;  // needed where HasGamut
};

// The script that makes gnuplot write an SVG document or a PNG picture, about
// 800 pixels wide, to its standard output.
std::string PlotScript(const ModePlot& plot, PlotKind kind, bool svg);

}  // namespace zelctl
