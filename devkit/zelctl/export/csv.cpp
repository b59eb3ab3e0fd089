// SPDX-License-Identifier: Apache-2.0

// CSV (RFC 4180): a row for each entry of a table, so that one header serves all blocks.
#include <algorithm>
#include <array>
#include <string>

#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/pcc_polynomial.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/export/number_text.h"
#include "plugin/block_names.h"

namespace zelctl {
namespace {

constexpr const char* kHeader =
    "block,entry,in_red,in_green,in_blue,red,green,blue,red_code,green_code,blue_code\r\n";

using Cells = std::array<std::string, 9>;

std::string Row(const std::string& block, size_t entry, const Cells& cells) {
  std::string row = block + "," + std::to_string(entry);
  for (const std::string& cell : cells) row += "," + cell;
  return row + "\r\n";
}

// A channel with fewer entries than the others leaves its cells empty.
std::string GammaRows(const std::string& name, const GammaBlock& block) {
  const auto& tables = block.Tables();
  size_t entries = 0;
  for (const auto& table : tables) entries = std::max(entries, table.size());
  std::string rows;
  for (size_t entry = 0; entry < entries; ++entry) {
    Cells cells;
    for (size_t i = 0; i < 3; ++i) {
      const auto& table = tables[i];
      if (entry >= table.size()) continue;
      cells[i] = ShortestText(tarn::reference::AxisInput(block.Axis(), entry, table.size()));
      cells[3 + i] = ShortestText(table[entry] / tarn::reference::MaxCode(block.BitDepth()));
      cells[6 + i] = std::to_string(table[entry]);
    }
    rows += Row(name, entry, cells);
  }
  return rows;
}

std::string GamutRows(const tarn::reference::GamutLut& lut) {
  using tarn::reference::kGamutSide;
  std::string rows;
  for (size_t entry = 0; entry < lut.nodes.size(); ++entry) {
    const std::array<size_t, 3> node = {entry / kGamutSide / kGamutSide,
                                        entry / kGamutSide % kGamutSide, entry % kGamutSide};
    Cells cells;
    for (size_t i = 0; i < 3; ++i) {
      const uint64_t code = lut.nodes[entry][i];
      cells[i] = ShortestText(tarn::reference::NodeLight(node[i]));
      cells[3 + i] =
          ShortestText(static_cast<double>(code) / tarn::reference::MaxCode(lut.bit_depth));
      cells[6 + i] = std::to_string(code);
    }
    rows += Row(velaricolor::kPostBlendGamut, entry, cells);
  }
  return rows;
}

// A term's input is its exponents.
std::string PccRows(const pcc_coeff_data& pcc) {
  std::string rows;
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    Cells cells;
    for (size_t i = 0; i < 3; ++i) {
      cells[i] = std::to_string(tarn::reference::kPccExponents[term][i]);
    }
    cells[3] = ShortestText(pcc.r[term]);
    cells[4] = ShortestText(pcc.g[term]);
    cells[5] = ShortestText(pcc.b[term]);
    rows += Row(velaricolor::kPostBlendPCC, term, cells);
  }
  return rows;
}

}  // namespace

ExportedFile WriteCsv(const ExportedMode& mode, const FormatOptions& /*options*/) {
  const BlockPipeline& pipeline = mode.pipeline;
  std::string text = kHeader;
  if (!pipeline.Igc().Passes()) text += GammaRows(velaricolor::kPostBlendIGC, pipeline.Igc());
  if (pipeline.Gamut().Table() != nullptr) text += GamutRows(*pipeline.Gamut().Table());
  if (pipeline.Pcc()) text += PccRows(pipeline.Pcc()->coeffs);
  if (!pipeline.Gc().Passes()) text += GammaRows(velaricolor::kPostBlendGC, pipeline.Gc());
  return {std::move(text), {}};
}

}  // namespace zelctl
