// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/parser/mode_parser.h"

#include <algorithm>
#include <utility>

#include "convert/gamut_gamma_config.h"
#include "devkit/reference/envelope.h"
#include "devkit/reference/gamma_lut.h"
#include "devkit/reference/gamut_lut.h"
#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/reference/parser/gamut_table.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/result_codes.h"

namespace tarn::reference {
namespace {

using velaricolor::kErrInvalid;
using velaricolor::kErrUnsupported;
using velaricolor::kOk;

constexpr const char* kTag = "TARN-PARSER";

int Refuse(const std::string& reason, int code = kErrInvalid) {
  LogError(kTag, reason);
  return code;
}

// A table whose dimensions the host may set.
struct Table {
  const char* name;
  uint32_t version;  // of its PostBlendHwConfig
  uint32_t min_entries;
  uint32_t max_entries;
  zeltarn::TableDimensions Dimensions::*size;
};

const Table* FindTable(uint32_t prop) {
  static constexpr Table kGamut = {"gamut", GamutPostBlendConfig::kVersion, kGamutSide, kGamutSide,
                                   &Dimensions::gamut};
  static constexpr Table kGc = {"gamma", GammaPostBlendConfig::kVersion, kMinGammaEntries,
                                zeltarn::kMaxGammaEntries, &Dimensions::gc};
  static constexpr Table kIgc = {"inverse gamma", GammaPostBlendConfig::kVersion, kMinGammaEntries,
                                 zeltarn::kMaxGammaEntries, &Dimensions::igc};
  switch (prop) {
    case kZelPostBlendGamutHwConfig:
      return &kGamut;
    case kZelPostBlendGammaHwConfig:
      return &kGc;
    case kZelPostBlendInverseGammaHwConfig:
      return &kIgc;
    default:
      return nullptr;
  }
}

std::string OutOfRange(const Table& table, const char* what, uint32_t value, uint32_t min,
                       uint32_t max) {
  const std::string range = min == max ? "" : std::to_string(min) + " to ";
  return std::string(table.name) + " table: " + std::to_string(value) + " " + what + ", expected " +
         range + std::to_string(max);
}

}  // namespace

int ModeParser::Init(const std::string& arg) {
  try {
    panel_ = ReadPanel(arg);
    ForgetBlocks();
    for (const std::string& note : panel_->notes) LogInfo(kTag, note);
    return kOk;
  } catch (const PanelError& error) {
    return Refuse(error.what());
  }
}

int ModeParser::DeInit() {
  panel_.reset();
  ForgetBlocks();
  return kOk;
}

int ModeParser::SetProperty(const TarnPayload& payload) {
  const Table* table = FindTable(payload.prop);
  if (table == nullptr) return Refuse("no property " + std::to_string(payload.prop) + " to set");
  const auto* config = RecordOf<PostBlendHwConfig>(&payload, kTag, table->version);
  if (config == nullptr) return kErrInvalid;
  const zeltarn::TableDimensions size = {config->num_of_entries, config->bit_depth};
  if (size.num_of_entries < table->min_entries || size.num_of_entries > table->max_entries) {
    return Refuse(
        OutOfRange(*table, "entries", size.num_of_entries, table->min_entries, table->max_entries));
  }
  if (size.bit_depth < 1 || size.bit_depth > kMaxBitDepth) {
    return Refuse(OutOfRange(*table, "bits", size.bit_depth, 1, kMaxBitDepth));
  }
  zeltarn::TableDimensions& current = dimensions_.*(table->size);
  if (size.num_of_entries != current.num_of_entries || size.bit_depth != current.bit_depth) {
    current = size;
    ForgetBlocks();
  }
  return kOk;
}

int ModeParser::GetProperty(TarnPayload* payload) {
  if (!panel_) return Refuse("not initialised");
  const uint32_t prop = payload == nullptr ? 0 : payload->prop;
  switch (prop) {
    case kZelModesList:
      return GetModesList(payload);
    case kZelPbDitherHwConfig:
      return GetDither(payload);
    default:
      return Refuse("no property " + std::to_string(prop) + " to get");
  }
}

int ModeParser::ProcessOps(ZelOps op, const TarnPayload& in, TarnPayload* out) {
  if (!panel_) return Refuse("not initialised");
  if (op != kZelModeRenderIntent && op != kZelModeSwAssets) {
    return Refuse("no operation " + std::to_string(op), kErrUnsupported);
  }
  if (in.prop != 0 || (out != nullptr && out->prop != 0)) {
    return Refuse("operation with a property");
  }
  const auto* request = RecordOf<const ModeRenderInputParams>(&in, kTag);
  auto* answer = RecordOf<HwConfigOutputParams>(out, kTag);
  if (request == nullptr || answer == nullptr) return kErrInvalid;
  const Mode* mode = FindMode(request->mode);
  if (mode == nullptr) {
    return Refuse("no mode with gamut " + std::to_string(request->mode.gamut) + ", gamma " +
                  std::to_string(request->mode.gamma) + ", intent " +
                  std::to_string(request->mode.intent));
  }
  answer->payloads = op == kZelModeRenderIntent ? RenderIntent(*mode) : mode->sw_assets;
  return kOk;
}

int ModeParser::GetModesList(TarnPayload* payload) const {
  auto* list = RecordOf<ColorModeList>(payload, kTag);
  if (list == nullptr) return kErrInvalid;
  list->modes.clear();
  for (const Mode& mode : panel_->modes) list->modes.push_back(mode.id);
  return kOk;
}

int ModeParser::GetDither(TarnPayload* payload) const {
  auto* answer = RecordOf<HwConfigOutputParams>(payload, kTag);
  if (answer == nullptr) return kErrInvalid;
  answer->payloads = panel_->dither;
  return kOk;
}

const Mode* ModeParser::FindMode(const ColorMode& id) const {
  const auto found =
      std::find_if(panel_->modes.begin(), panel_->modes.end(), [&](const Mode& mode) {
        return mode.id.gamut == id.gamut && mode.id.gamma == id.gamma &&
               mode.id.intent == id.intent;
      });
  return found == panel_->modes.end() ? nullptr : &*found;
}

const Blocks& ModeParser::RenderIntent(const Mode& mode) {
  Blocks& blocks = rendered_[static_cast<size_t>(&mode - panel_->modes.data())];
  if (!blocks.empty()) return blocks;
  Blocks computed = {GamutBlock(*panel_, mode.target, dimensions_.gamut),
                     IgcBlock(*panel_, mode.target, dimensions_.igc),
                     GcBlock(*panel_, dimensions_.gc), PccBlock(*panel_, mode.target)};
  computed.insert(computed.end(), mode.blocks.begin(), mode.blocks.end());
  return blocks = std::move(computed);
}

void ModeParser::ForgetBlocks() { rendered_.assign(panel_ ? panel_->modes.size() : 0, {}); }

}  // namespace tarn::reference

extern "C" __attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(
    int major_version, int minor_version) {
  if (major_version != 2 || minor_version != 0) return nullptr;
  return new tarn::reference::ModeParser;
}
