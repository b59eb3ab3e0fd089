// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/block_json.h"

#include <map>
#include <string>
#include <string_view>

#include "convert/block_table.h"
#include "devkit/zelctl/blocks/block_record.h"

namespace zelctl {
namespace {

namespace layout = zeltarn::layout;
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

template <typename Side>
Json Fields(const layout::GamutPostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"lut_data", Hex(config.lut_data)}};
}

template <typename Side>
Json Fields(const layout::GammaPostBlendConfig<Side>& config) {
  return {{"enable", config.enable},
          {"c0", config.c0},
          {"c1", config.c1},
          {"c2", config.c2},
          {"aux_flag", config.aux_flag},
          {"aux_value", config.aux_value}};
}

template <typename Side>
Json Fields(const layout::PccPostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"rows", PccRowsJson(config.coeffs)}};
}

template <typename Side>
Json SubParams(const layout::PaSubParams<Side>& params) {
  return {{"ints_a", params.ints_a},   {"floats", params.floats},   {"ints_b", params.ints_b},
          {"triple0", params.triple0}, {"triple1", params.triple1}, {"triple2", params.triple2}};
}

template <typename Side>
Json Fields(const layout::PaPostBlendConfig<Side>& config) {
  Json sub_params = Json::array();
  for (const auto& params : config.sub_params) sub_params.push_back(SubParams(params));
  return {{"enable", config.enable},
          {"i_params", config.i_params},
          {"f_params", config.f_params},
          {"sub_params", sub_params},
          {"tail_params", Hex(config.tail_params)},
          {"tail_table", Hex(config.tail_table)}};
}

template <typename Side>
Json Fields(const layout::DitherPostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"params", Hex(config.params)}};
}

template <typename Side>
Json Fields(const layout::PaDitherPostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"words", config.words}};
}

template <typename Side>
Json Fields(const layout::DePostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"params", Hex(config.params)}};
}

template <typename Side>
Json Fields(const layout::HdrBlobPostBlendConfig<Side>& config) {
  return {{"blob", Hex(config.blob)}};
}

template <typename Side>
Json Fields(const layout::GameBlobPostBlendConfig<Side>& config) {
  return {{"enable", config.enable}, {"blob", Hex(config.blob)}};
}

template <template <typename> class Config, typename Side>
Json FieldsOf(const layout::HwConfigPayload<Side>& payload) {
  const auto* record = RecordOf<Config<Side>>(payload);
  return record == nullptr ? Json{{"problem", "its record is missing or of another version"}}
                           : Fields(*record);
}

// What is known of a block's record: its size and how it is read, from either side.
struct BlockType {
  uint32_t bytes;
  Json (*from_host)(const vc::HwConfigPayload&);
  Json (*from_library)(const tarn::HwConfigPayload&);

  Json Read(const vc::HwConfigPayload& payload) const { return from_host(payload); }
  Json Read(const tarn::HwConfigPayload& payload) const { return from_library(payload); }
};

template <template <typename> class Config>
BlockType TypeOf() {
  return {Config<vc::HostSide>::kVersion, FieldsOf<Config, vc::HostSide>,
          FieldsOf<Config, tarn::LibrarySide>};
}

const BlockType* FindType(const std::string& name) {
  static const auto types = [] {
    std::map<std::string, BlockType> all;
    layout::ForEachBlock([&]<template <typename> class Config>(const std::string& block) {
      all.emplace(block, TypeOf<Config>());
    });
    return all;
  }();
  const auto found = types.find(name);
  return found == types.end() ? nullptr : &found->second;
}

template <typename Payload>
Json ReadBlock(const Payload& payload) {
  Json block = {{"name", payload.hw_block}, {"bytes", payload.len}};
  const BlockType* type = FindType(payload.hw_block);
  block.update(type == nullptr ? Json{{"problem", "unknown block"}} : type->Read(payload));
  return block;
}

}  // namespace

Json PccRowsJson(const pcc_coeff_data& coeffs) {
  return {{"r", coeffs.r}, {"g", coeffs.g}, {"b", coeffs.b}};
}

Json BlockJson(const vc::HwConfigPayload& payload) { return ReadBlock(payload); }
Json BlockJson(const tarn::HwConfigPayload& payload) { return ReadBlock(payload); }

uint32_t RecordBytes(const std::string& block) {
  const BlockType* type = FindType(block);
  return type == nullptr ? 0 : type->bytes;
}

}  // namespace zelctl
