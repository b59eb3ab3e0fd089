#include "devkit/zelctl/block_json.h"

#include <map>
#include <string>
#include <string_view>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "plugin/names.h"

namespace zelctl {
namespace {

namespace vc = velaricolor;

template <typename Bytes>
std::string Hex(const Bytes& bytes) {
  constexpr std::string_view kDigits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * bytes.size());
  for (const auto byte : bytes) {
    const auto value = static_cast<uint8_t>(byte);
    text += {kDigits[value >> 4], kDigits[value & 15]};
  }
  return text;
}

Json Fields(const vc::GamutPostBlendConfig& config) {
  return {{"enable", config.enable}, {"lut_data", Hex(config.lut_data)}};
}

Json Fields(const vc::GammaPostBlendConfig& config) {
  return {{"enable", config.enable},
          {"c0", config.c0},
          {"c1", config.c1},
          {"c2", config.c2},
          {"aux_flag", config.aux_flag},
          {"aux_value", config.aux_value}};
}

Json Fields(const vc::PccPostBlendConfig& config) {
  return {{"enable", config.enable}, {"rows", PccRowsJson(config.coeffs)}};
}

Json SubParams(const vc::PaSubParams& params) {
  return {{"ints_a", params.ints_a},   {"floats", params.floats},   {"ints_b", params.ints_b},
          {"triple0", params.triple0}, {"triple1", params.triple1}, {"triple2", params.triple2}};
}

Json Fields(const vc::PaPostBlendConfig& config) {
  Json sub_params = Json::array();
  for (const auto& params : config.sub_params) sub_params.push_back(SubParams(params));
  return {{"enable", config.enable},
          {"i_params", config.i_params},
          {"f_params", config.f_params},
          {"sub_params", sub_params},
          {"tail_params", Hex(config.tail_params)},
          {"tail_table", Hex(config.tail_table)}};
}

Json Fields(const vc::DitherPostBlendConfig& config) {
  return {{"enable", config.enable}, {"params", Hex(config.params)}};
}

Json Fields(const vc::PaDitherPostBlendConfig& config) {
  return {{"enable", config.enable}, {"words", config.words}};
}

Json Fields(const vc::DePostBlendConfig& config) {
  return {{"enable", config.enable}, {"params", Hex(config.params)}};
}

Json Fields(const vc::HdrBlobPostBlendConfig& config) { return {{"blob", Hex(config.blob)}}; }

Json Fields(const vc::GameBlobPostBlendConfig& config) {
  return {{"enable", config.enable}, {"blob", Hex(config.blob)}};
}

template <typename T>
Json FieldsOf(const vc::HwConfigPayload& payload) {
  const T* record = RecordOf<T>(payload);
  return record == nullptr ? Json{{"problem", "its record is missing or of another version"}}
                           : Fields(*record);
}

using Reader = Json (*)(const vc::HwConfigPayload&);

Reader FindReader(const std::string& name) {
  static const std::map<std::string, Reader> readers = {
      {vc::kPostBlendGamut, FieldsOf<vc::GamutPostBlendConfig>},
      {vc::kPostBlendIGC, FieldsOf<vc::GammaPostBlendConfig>},
      {vc::kPostBlendGC, FieldsOf<vc::GammaPostBlendConfig>},
      {vc::kPostBlendPCC, FieldsOf<vc::PccPostBlendConfig>},
      {vc::kPostBlendPa, FieldsOf<vc::PaPostBlendConfig>},
      {vc::kPostBlendDither, FieldsOf<vc::DitherPostBlendConfig>},
      {vc::kPostBlendPaDither, FieldsOf<vc::PaDitherPostBlendConfig>},
      {vc::kPostBlendDE, FieldsOf<vc::DePostBlendConfig>},
      {vc::kPostBlendHdrBlob, FieldsOf<vc::HdrBlobPostBlendConfig>},
      {vc::kPostBlendGameBlob, FieldsOf<vc::GameBlobPostBlendConfig>},
  };
  const auto found = readers.find(name);
  return found == readers.end() ? nullptr : found->second;
}

}  // namespace

Json PccRowsJson(const pcc_coeff_data& coeffs) {
  return {{"r", coeffs.r}, {"g", coeffs.g}, {"b", coeffs.b}};
}

Json BlockJson(const vc::HwConfigPayload& payload) {
  Json block = {{"name", payload.hw_block}, {"bytes", payload.len}};
  const Reader reader = FindReader(payload.hw_block);
  block.update(reader == nullptr ? Json{{"problem", "unknown block"}} : reader(payload));
  return block;
}

}  // namespace zelctl
