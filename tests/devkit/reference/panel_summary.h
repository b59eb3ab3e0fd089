// SPDX-License-Identifier: Apache-2.0

// What a panel description says, as a text that two of them can be compared by.
#pragma once

#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>

#include "convert/blob_config.h"
#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "plugin/names.h"

inline void Describe(const tarn::reference::Blocks& blocks, std::ostream& out) {
  for (const auto& block : blocks) {
    out << block.hw_block << ' ';
    if (block.hw_block == velaricolor::kPostBlendHdrBlob) {
      out << static_cast<const tarn::HdrBlobPostBlendConfig*>(block.payload.get())->blob;
    } else if (block.hw_block == velaricolor::kPostBlendGameBlob) {
      const auto* record = static_cast<const tarn::GameBlobPostBlendConfig*>(block.payload.get());
      out << record->enable << record->blob;
    } else {
      out << std::string(static_cast<const char*>(block.payload.get()), block.len);
    }
    out << '\n';
  }
}

inline void Describe(const tarn::color::Primaries& p, std::ostream& out) {
  for (const auto& c : {p.red, p.green, p.blue, p.white}) out << c.x << ',' << c.y << ' ';
}

inline void Describe(const tarn::color::TransferFunction& function, std::ostream& out) {
  out << static_cast<int>(function.curve) << ' ' << function.gamma << ' ';
  for (const auto& ramp : function.ramps) {
    for (const auto& point : ramp) out << point.signal << ',' << point.light << ' ';
  }
  if (function.content) out << function.content->peak << ' ' << function.content->black;
}

// All that a description says, as a text.
inline std::string Summary(const tarn::reference::Panel& panel) {
  std::ostringstream out;
  out.precision(9);
  Describe(panel.primaries, out);
  Describe(panel.transfer, out);
  out << panel.luminance.peak << ' ' << panel.luminance.black << ' ' << panel.bit_depth << '\n';
  Describe(panel.dither, out);
  for (const auto& mode : panel.modes) {
    out << mode.id.label << ' ' << mode.id.gamut << ' ' << mode.id.gamma << ' ' << mode.id.intent;
    for (const std::string& asset : mode.id.hw_assets) out << ' ' << asset;
    Describe(mode.target.primaries, out);
    Describe(mode.target.transfer, out);
    out << mode.target.adaptation << static_cast<int>(mode.target.gamut_mapping) << '\n';
    Describe(mode.blocks, out);
    Describe(mode.sw_assets, out);
  }
  return out.str();
}

// What the parser makes of a description; its refusal, where it refuses it.
inline std::string Read(const nlohmann::json& description) {
  static const std::string path =
      testing::TempDir() + "documented_" + std::to_string(getpid()) + ".json";
  std::ofstream(path) << description;
  std::string summary;
  try {
    summary = Summary(tarn::reference::ReadPanel(path));
  } catch (const tarn::reference::PanelError& error) {
    summary = std::string("refused: ") + error.what();
  }
  std::filesystem::remove(path);
  return summary;
}
