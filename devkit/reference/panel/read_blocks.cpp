// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_blocks.h"

#include <algorithm>
#include <bit>

#include "convert/blob_config.h"
#include "convert/dither_config.h"
#include "convert/pa_de_config.h"
#include "devkit/reference/dither_params.h"
#include "devkit/reference/panel/read_bytes.h"
#include "plugin/names.h"

namespace tarn::reference {
namespace {

// The 4 x 4 ordered-dither matrix of Bayer, 1973.
constexpr DitherMatrix kBayer = {0, 8, 2, 10, 12, 4, 14, 6, 3, 11, 1, 9, 15, 7, 13, 5};
constexpr uint32_t kMaxThreshold = 15;

HwConfigPayload ReadPa(const JsonValue& value) {
  ObjectReader in(value);
  auto record = std::make_shared<PaPostBlendConfig>();
  record->enable = in.Bool("enable", true);
  ReadArray(in.Find("i_params"), &record->i_params);
  ReadArray(in.Find("f_params"), &record->f_params);
  if (const auto sub_params = in.Find("sub_params")) {
    size_t index = 0;
    for (const JsonValue& element : sub_params->Elements(3, 3)) {
      PaSubParams& sub = record->sub_params[index++];
      ObjectReader sub_in(element);
      ReadArray(sub_in.Find("ints_a"), &sub.ints_a);
      ReadArray(sub_in.Find("floats"), &sub.floats);
      ReadArray(sub_in.Find("ints_b"), &sub.ints_b);
      ReadArray(sub_in.Find("triple0"), &sub.triple0);
      ReadArray(sub_in.Find("triple1"), &sub.triple1);
      ReadArray(sub_in.Find("triple2"), &sub.triple2);
      sub_in.Finish();
    }
  }
  ReadBytes(in.Find("tail_params"), &record->tail_params);
  ReadBytes(in.Find("tail_table"), &record->tail_table);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendPa, std::move(record));
}

HwConfigPayload ReadDe(const JsonValue& value) {
  ObjectReader in(value);
  auto record = std::make_shared<DePostBlendConfig>();
  record->enable = in.Bool("enable", true);
  ReadBytes(in.Find("params"), &record->params);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendDE, std::move(record));
}

// What the two dither blocks have in common: "bits" and "matrix".
template <typename T>
void ReadPattern(ObjectReader* in, uint32_t bit_depth, T* pattern) {
  pattern->bits.fill(static_cast<uint32_t>(in->Integer("bits", 1, 16, bit_depth)));
  pattern->matrix = kBayer;
  ReadArray(in->Find("matrix"), &pattern->matrix, kMaxThreshold);
}

HwConfigPayload ReadPaDither(const JsonValue& value, uint32_t bit_depth) {
  ObjectReader in(value);
  auto record = std::make_shared<PaDitherPostBlendConfig>();
  record->enable = in.Bool("enable", true);
  PaDitherWords words = {};
  words.strength = static_cast<uint32_t>(in.Integer("strength", 0, 15, 8));
  ReadPattern(&in, bit_depth, &words);
  record->words = std::bit_cast<decltype(record->words)>(words);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendPaDither, std::move(record));
}

// The bytes under "hex", or the characters under "text".
std::string ReadBlob(ObjectReader* in) {
  const auto hex = in->Find("hex");
  const auto text = in->Find("text");
  if (hex.has_value() == text.has_value()) {
    in->Object().Refuse("expected either \"hex\" or \"text\"");
  }
  return hex ? BytesOf(*hex, kMaxBlobBytes) : TextBytesOf(*text, kMaxBlobBytes);
}

HwConfigPayload ReadHdrBlob(const JsonValue& value) {
  ObjectReader in(value);
  auto record = std::make_shared<HdrBlobPostBlendConfig>();
  record->blob = ReadBlob(&in);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendHdrBlob, std::move(record));
}

HwConfigPayload ReadGameBlob(const JsonValue& value) {
  ObjectReader in(value);
  auto record = std::make_shared<GameBlobPostBlendConfig>();
  record->enable = in.Bool("enable", true);
  record->blob = ReadBlob(&in);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendGameBlob, std::move(record));
}

}  // namespace

HwConfigPayload ReadDither(const JsonValue& value, uint32_t bit_depth) {
  ObjectReader in(value);
  auto record = std::make_shared<DitherPostBlendConfig>();
  record->enable = in.Bool("enable", true);
  DitherParams params = {};
  params.temporal = in.Bool("temporal", false) ? 1 : 0;
  ReadPattern(&in, bit_depth, &params);
  record->params = std::bit_cast<decltype(record->params)>(params);
  in.Finish();
  return MakeBlock(velaricolor::kPostBlendDither, std::move(record));
}

Blocks ReadBlocks(const JsonValue& value, uint32_t bit_depth) {
  ObjectReader in(value);
  Blocks blocks;
  if (const auto pa = in.Find("pa")) blocks.push_back(ReadPa(*pa));
  if (const auto dither = in.Find("dither")) blocks.push_back(ReadDither(*dither, bit_depth));
  if (const auto dither = in.Find("pa_dither")) blocks.push_back(ReadPaDither(*dither, bit_depth));
  if (const auto blob = in.Find("hdr_blob")) blocks.push_back(ReadHdrBlob(*blob));
  if (const auto blob = in.Find("game_blob")) blocks.push_back(ReadGameBlob(*blob));
  if (const auto de = in.Find("de")) blocks.push_back(ReadDe(*de));
  in.Finish();
  return blocks;
}

}  // namespace tarn::reference
