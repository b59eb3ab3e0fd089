// SPDX-License-Identifier: Apache-2.0

// JSON: the colour blocks as numbers, and every block as `render --json --tables` has it.
#include <sstream>

#include "devkit/reference/gamma_lut.h"
#include "devkit/zelctl/block_json.h"
#include "devkit/zelctl/export/formats.h"

namespace zelctl {
namespace {

// Null where the block lets values pass, here and below.
Json GammaJson(const GammaBlock& block) {
  if (block.Passes()) return nullptr;
  Json json = {{"bits", block.BitDepth()}};
  constexpr std::array<const char*, 3> kChannels = {"red", "green", "blue"};
  for (size_t i = 0; i < 3; ++i) {
    const auto& table = block.Tables()[i];
    Json inputs = Json::array();
    for (size_t entry = 0; entry < table.size(); ++entry) {
      inputs.push_back(tarn::reference::AxisInput(block.Axis(), entry, table.size()));
    }
    json[kChannels[i]] = {{"in", inputs}, {"code", table}};
  }
  return json;
}

Json GamutJson(const tarn::reference::GamutLut* lut) {
  if (lut == nullptr) return nullptr;
  Json axis = Json::array();
  for (size_t i = 0; i < tarn::reference::kGamutSide; ++i) {
    axis.push_back(tarn::reference::NodeLight(i));
  }
  return {{"bits", lut->bit_depth}, {"axis", axis}, {"nodes", lut->nodes}};
}

}  // namespace

ExportedFile WriteJson(const ExportedMode& mode, const FormatOptions& /*options*/) {
  const BlockPipeline& pipeline = mode.pipeline;
  std::ostringstream text;
  PrintJson({{"title", mode.Title()},
             {"igc", GammaJson(pipeline.Igc())},
             {"gamut", GamutJson(pipeline.Gamut().Table())},
             {"pcc", pipeline.Pcc() ? PccRowsJson(pipeline.Pcc()->coeffs) : Json(nullptr)},
             {"gc", GammaJson(pipeline.Gc())},
             {"blocks", mode.blocks}},
            text);
  return {std::move(text).str(), {}};
}

}  // namespace zelctl
