// SPDX-License-Identifier: Apache-2.0

// The smallest mode parser that keeps every promise: two modes of an imagined panel with
// a gamma of 2.2. A real one learns both from the file that Init's text names.
#include <algorithm>
#include <cerrno>
#include <cmath>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "bridge/library.h"

namespace {

using tarn::ColorMode;
using tarn::HwConfigPayload;
using tarn::TarnPayload;
using zeltarn::TableDimensions;

constexpr double kPanelGamma = 2.2;

// The T in an envelope; null where there is none of that length and version.
template <typename T>
T* RecordOf(const TarnPayload& envelope, uint32_t version = T::kVersion) {
  auto* const record = static_cast<T*>(envelope.payload);
  const bool fits = envelope.len == sizeof(T) && record != nullptr && record->version == version;
  return fits ? record : nullptr;
}

// Its record must be the one that belongs to the block's name.
template <typename Record>
HwConfigPayload Block(const std::string& name, const std::shared_ptr<Record>& record) {
  HwConfigPayload block;
  block.hw_block = name;
  block.payload = record;
  block.len = sizeof(Record);
  return block;
}

// Powers of 0 to 1 as codes of the table's bit depth.
std::vector<uint32_t> Curve(const TableDimensions& size, double exponent) {
  const double last = std::max(size.num_of_entries, 2U) - 1;
  const double largest_code = std::ldexp(1, static_cast<int>(size.bit_depth)) - 1;
  std::vector<uint32_t> codes(size.num_of_entries);
  for (size_t i = 0; i < codes.size(); ++i) {
    const double value = std::pow(static_cast<double>(i) / last, exponent);
    codes[i] = static_cast<uint32_t>(std::llround(value * largest_code));
  }
  return codes;
}

HwConfigPayload GammaBlock(const std::string& name, const TableDimensions& size, double exponent) {
  const auto table = std::make_shared<tarn::GammaPostBlendConfig>();
  table->enable = true;
  table->c0 = table->c1 = table->c2 = Curve(size, exponent);
  return Block(name, table);
}

// White as it is, or warmer.
HwConfigPayload PccBlock(bool warm) {
  const auto pcc = std::make_shared<tarn::PccPostBlendConfig>();  // all zero but its version
  pcc->enable = true;
  pcc->coeffs.r[1] = 1;
  pcc->coeffs.g[2] = warm ? 0.9 : 1;
  pcc->coeffs.b[3] = warm ? 0.7 : 1;
  return Block(velaricolor::kPostBlendPCC, pcc);
}

class ModeParser : public tarn::ModeParserIntf {
 public:
  int Init(const std::string& /*arg*/) override {
    ColorMode mode;
    mode.gamut = mode.gamma = mode.intent = 0;
    mode.label = "native";
    modes_ = {mode, mode};
    modes_[1].intent = 1;  // the three ids together tell modes apart
    modes_[1].label = "warm";
    return 0;
  }

  int DeInit() override { return 0; }

  int SetProperty(const TarnPayload& payload) override {
    if (payload.prop == tarn::kZelPostBlendGamutHwConfig) return 0;  // no such block here
    const bool igc = payload.prop == tarn::kZelPostBlendInverseGammaHwConfig;
    if (!igc && payload.prop != tarn::kZelPostBlendGammaHwConfig) return -EINVAL;
    const auto* config =
        RecordOf<const tarn::PostBlendHwConfig>(payload, tarn::GammaPostBlendConfig::kVersion);
    if (config == nullptr) return -EINVAL;
    TableDimensions& size = igc ? igc_ : gc_;
    // Kept even where the depth is refused: the plug-in needs lists of that length now.
    size.num_of_entries = config->num_of_entries;
    if (config->bit_depth < 1 || config->bit_depth > 32) return -EINVAL;
    size.bit_depth = config->bit_depth;
    return 0;
  }

  int GetProperty(TarnPayload* payload) override {
    if (payload->prop == tarn::kZelPbDitherHwConfig) return 0;  // the panel needs none
    if (payload->prop != tarn::kZelModesList) return -EINVAL;
    auto* const list = RecordOf<tarn::ColorModeList>(*payload);
    if (list == nullptr) return -EINVAL;
    list->modes = modes_;
    return 0;
  }

  int ProcessOps(tarn::ZelOps op, const TarnPayload& in, TarnPayload* out) override {
    const auto* request = RecordOf<const tarn::ModeRenderInputParams>(in);
    auto* const answer = RecordOf<tarn::HwConfigOutputParams>(*out);
    if (request == nullptr || answer == nullptr) return -EINVAL;
    const auto mode = std::find_if(modes_.begin(), modes_.end(), [&](const ColorMode& known) {
      return known.gamut == request->mode.gamut && known.gamma == request->mode.gamma &&
             known.intent == request->mode.intent;
    });
    if (mode == modes_.end()) return -EINVAL;
    if (op == tarn::kZelModeSwAssets) return 0;  // none
    if (op != tarn::kZelModeRenderIntent) return -EOPNOTSUPP;
    answer->payloads = {GammaBlock(velaricolor::kPostBlendIGC, igc_, kPanelGamma),
                        PccBlock(mode->label == "warm"),
                        GammaBlock(velaricolor::kPostBlendGC, gc_, 1 / kPanelGamma)};
    return 0;
  }

 private:
  std::vector<ColorMode> modes_;
  TableDimensions igc_ = zeltarn::kDefaultInverseGamma;
  TableDimensions gc_ = zeltarn::kDefaultGamma;
};

}  // namespace

// The one name that the library exports.
extern "C" __attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(
    int major_version, int minor_version) {
  const bool known =
      major_version == tarn::kTarnMajorVersion && minor_version == tarn::kTarnMinorVersion;
  return known ? new ModeParser : nullptr;
}
