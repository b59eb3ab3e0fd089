// SPDX-License-Identifier: Apache-2.0

// Common LUT Format: one process node for each step of a block.
#include <cmath>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/pcc_polynomial.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/export/number_text.h"
#include "devkit/zelctl/markup_text.h"

namespace zelctl {
namespace {

using tarn::reference::kGamutSide;
using tarn::reference::kPccRange;
using zeltarn::kPccTerms;

constexpr std::string_view kDepths = "inBitDepth=\"32f\" outBitDepth=\"32f\"";

std::string Node(const std::string& kind, const std::string& attributes,
                 const std::string& contents) {
  return "    <" + kind + " " + attributes + " " + std::string(kDepths) + ">\n" + contents +
         "    </" + kind + ">\n";
}

// `rows` of `width` numbers, line by line.
template <typename Value>
std::string Array(const std::string& dimensions, size_t rows, size_t width, Value value) {
  std::string text = "        <Array dim=\"" + dimensions + "\">\n";
  for (size_t row = 0; row < rows; ++row) {
    for (size_t i = 0; i < width; ++i) text += (i == 0 ? "" : " ") + ShortestText(value(row, i));
    text += '\n';
  }
  return text + "        </Array>\n";
}

std::string Clip(const std::string& name) {
  return Node("Range", "name=\"" + name + "\"",
              "        <minInValue>0</minInValue>\n        <maxInValue>1</maxInValue>\n"
              "        <minOutValue>0</minOutValue>\n        <maxOutValue>1</maxOutValue>\n");
}

std::string GammaTable(const std::string& name, const GammaBlock& block) {
  const auto& tables = block.Tables();
  size_t entries = 2;  // a single entry is the output of every input
  for (const auto& table : tables) entries = std::max(entries, table.size());
  for (const auto& table : tables) {
    if (table.size() != 1 && table.size() != entries) {
      throw UsageError("clf: the channels of " + name + " differ in the number of entries");
    }
  }
  const double full = tarn::reference::MaxCode(block.BitDepth());
  const size_t columns = tables[0] == tables[1] && tables[0] == tables[2] ? 1 : 3;
  return Node("LUT1D", "name=\"" + name + "\" interpolation=\"linear\"",
              Array(std::to_string(entries) + " " + std::to_string(columns), entries, columns,
                    [&](size_t entry, size_t channel) {
                      const auto& table = tables[channel];
                      return static_cast<float>(table[std::min(entry, table.size() - 1)] / full);
                    }));
}

// The nodes' light is (i/16)^2, where a LUT3D has even steps. 257 even steps of light meet all of
// these squares, so that straight lines between them bring the axis to even steps exactly.
std::string GamutAxis() {
  constexpr size_t kLast = kGamutSide - 1;
  return Node("LUT1D", "name=\"Gamut axis\" interpolation=\"linear\"",
              Array(std::to_string(kLast * kLast + 1) + " 1", kLast * kLast + 1, 1,
                    [](size_t entry, size_t) {
                      const auto node = std::min(
                          static_cast<size_t>(std::sqrt(static_cast<double>(entry))), kLast - 1);
                      const double share = static_cast<double>(entry - node * node) /
                                           static_cast<double>(2 * node + 1);
                      return static_cast<float>((static_cast<double>(node) + share) / kLast);
                    }));
}

// Blue varies fastest, here and there.
std::string GamutTable(const tarn::reference::GamutLut& lut) {
  const std::string side = std::to_string(kGamutSide);
  const double full = tarn::reference::MaxCode(lut.bit_depth);
  return Node(
      "LUT3D", "name=\"Gamut\" interpolation=\"tetrahedral\"",
      Array(side + " " + side + " " + side + " 3", lut.nodes.size(), 3,
            [&](size_t node, size_t channel) {
              return static_cast<float>(static_cast<double>(lut.nodes[node][channel]) / full);
            }));
}

using Rows = std::array<const double*, 3>;

void RefuseWhatNoMatrixHolds(const Rows& rows) {
  constexpr std::array<const char*, 3> kChannels = {"red", "green", "blue"};
  constexpr std::array<const char*, kPccTerms> kTerms = {"1",   "R",   "G",   "B",   "R*G",  "G*B",
                                                         "R*B", "R^2", "G^2", "B^2", "R*G*B"};
  std::string terms;
  for (size_t row = 0; row < 3; ++row) {
    for (size_t term = 0; term < kPccTerms; ++term) {
      const double factor = rows[row][term];
      if (!(std::abs(factor) <= std::numeric_limits<float>::max() / kPccTerms)) {
        throw UsageError("clf: the PCC block's factor of " + std::string(kTerms[term]) + " in " +
                         kChannels[row] + " exceeds single precision");
      }
      if (term < 4 || factor == 0) continue;
      terms += (terms.empty() ? "" : ", ") + std::string(kTerms[term]) + " (t" +
               std::to_string(term) + ") in " + kChannels[row];
    }
  }
  if (!terms.empty()) {
    throw UsageError("clf holds a matrix with offsets, and the PCC block has more: " + terms +
                     "; cube holds it");
  }
}

std::string Matrix(const pcc_coeff_data& pcc) {
  const Rows rows = {pcc.r.data(), pcc.g.data(), pcc.b.data()};
  RefuseWhatNoMatrixHolds(rows);
  return Node("Matrix", "name=\"PCC\"", Array("3 4", 3, 4, [&rows](size_t row, size_t column) {
                return column < 3 ? rows[row][column + 1] : rows[row][0] / kPccRange;
              }));
}

std::string Gc(const GammaBlock& gc) {
  return Node("Exponent", "name=\"GC axis\" style=\"basicFwd\"",
              "        <ExponentParams exponent=\"0.5\" />\n") +
         GammaTable("GC", gc);
}

std::string Nodes(const BlockPipeline& pipeline) {
  std::string nodes = pipeline.Igc().Passes() ? Clip("Signal") : GammaTable("IGC", pipeline.Igc());
  if (const auto* lut = pipeline.Gamut().Table(); lut != nullptr) {
    // The range keeps programs from merging two tables into one of fewer entries than it needs.
    nodes += Clip("Light of the mode") + GamutAxis() + GamutTable(*lut);
  }
  if (pipeline.Pcc()) nodes += Matrix(pipeline.Pcc()->coeffs);
  nodes += Clip("Light of the panel");
  return pipeline.Gc().Passes() ? nodes : nodes + Gc(pipeline.Gc());
}

}  // namespace

ExportedFile WriteClf(const ExportedMode& mode, const FormatOptions& /*options*/) {
  const std::string title = Escaped(mode.Title());
  std::string text =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<ProcessList id=\"" +
      mode.Id() + "\" name=\"" + title +
      "\" compCLFversion=\"3.0\">\n"
      "    <Description>" +
      title +
      ": IGC, gamut, PCC and GC</Description>\n"
      "    <InputDescriptor>Signal of the mode's content, 0 to 1</InputDescriptor>\n"
      "    <OutputDescriptor>Signal that drives the panel, 0 to 1</OutputDescriptor>\n" +
      Nodes(mode.pipeline) + "</ProcessList>\n";
  return {std::move(text), {}};
}

}  // namespace zelctl
