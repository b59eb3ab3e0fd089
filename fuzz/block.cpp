// SPDX-License-Identifier: Apache-2.0
#include "fuzz/block.h"

#include <algorithm>
#include <bit>

#include "convert/block_table.h"

namespace zeltarn::fuzz {

namespace {

// Spelt out, so that a constant that changed is noticed. First those that are known.
const std::array<std::string, 24> kNames = {
    "PostBlendPCC",       "PostBlendIGC",     "PostBlendGC",       "PostBlendPa",
    "PostBlendGamut",     "PostBlendDither",  "PostBlendPaDither", "PostBlendHdrBlob",
    "PostBlendGameBlob",  "PostBlendDE",      "PostBlendPCC",      "PostBlendIGC",
    "PostBlendCWBDither", "PostBlendMixerGc", "HwCapIgcDither",    "",
    "PostBlend",          "PostBlendPC",      "PostBlendPCC ",     "postBlendPCC",
    "PostBlendPCCX",      "PostBlendPaDithe", "PostBlendIgc",      {"PostBlendPCC\0", 13}};

// Calls `visit` with a null pointer to the type of the record that belongs to
// `name`; of unknown names that is a single byte.
template <typename Side, typename Visit>
auto WithRecord(const std::string& name, Visit visit) {
  auto result = visit(static_cast<uint8_t*>(nullptr));
  layout::ForEachBlock([&]<template <typename> class Config>(const std::string& block) {
    if (block == name) result = visit(static_cast<Config<Side>*>(nullptr));
  });
  return result;
}

// A block that is missing above would never be tried.
const std::string& AnyName(Input* input) {
  [[maybe_unused]] static const bool complete = [] {
    layout::ForEachBlock([]<template <typename> class Config>(const std::string& block) {
      Require(std::find(kNames.begin(), kNames.end(), block) != kNames.end(), block.c_str());
    });
    return true;
  }();
  return input->OneOf(kNames);
}

constexpr size_t kHeaderBytes = 8;  // version, enable and padding

template <typename Record>
std::shared_ptr<Record> MakeRecord(const Content& content) {
  auto record = std::make_shared<Record>();
  if constexpr (requires { record->enable; }) {
    std::memcpy(&record->enable, &content.enable, sizeof content.enable);
  }
  if constexpr (requires { record->coeffs; }) {
    record->coeffs = content.coeffs;
  } else if constexpr (requires { record->c0; }) {
    record->c0.assign(content.entries[0], content.filling);
    record->c1.assign(content.entries[1], content.filling);
    record->c2.assign(content.entries[2], content.filling);
  } else if constexpr (requires { record->blob; }) {
    record->blob.assign(content.filling * size_t{8}, static_cast<char>(content.filling));
  } else if constexpr (requires { record->version; }) {
    std::memset(reinterpret_cast<char*>(record.get()) + kHeaderBytes, content.filling,
                sizeof(Record) - kHeaderBytes);
    if constexpr (requires { record->gap0; }) record->gap0 = record->gap1 = {};  // not carried
  }
  return record;
}

template <typename Record>
bool Holds(const Record& found, const Content& content) {
  if constexpr (requires { found.version; }) {
    if (found.version != Record::kVersion) return false;
  }
  if constexpr (requires { found.enable; }) {
    if (std::memcmp(&found.enable, &content.enable, sizeof content.enable) != 0) return false;
  }
  if constexpr (requires { found.coeffs; }) {
    return Same(found.coeffs, content.coeffs);
  } else if constexpr (requires { found.c0; }) {
    const std::shared_ptr<Record> expected = MakeRecord<Record>(content);
    return found.c0 == expected->c0 && found.c1 == expected->c1 && found.c2 == expected->c2;
  } else if constexpr (requires { found.blob; }) {
    return found.blob == MakeRecord<Record>(content)->blob;
  } else if constexpr (requires { found.version; }) {
    const std::shared_ptr<Record> expected = MakeRecord<Record>(content);
    return std::memcmp(reinterpret_cast<const char*>(&found) + kHeaderBytes,
                       reinterpret_cast<const char*>(expected.get()) + kHeaderBytes,
                       sizeof(Record) - kHeaderBytes) == 0;
  }
  return true;
}

bool SameRow(const zeltarn::PccRow& a, const zeltarn::PccRow& b) {
  return std::equal(a.begin(), a.end(), b.begin(), [](double x, double y) {
    return (x != x && y != y) || std::bit_cast<uint64_t>(x) == std::bit_cast<uint64_t>(y);
  });
}

}  // namespace

bool Same(const pcc_coeff_data& a, const pcc_coeff_data& b) {
  return a.reserved == b.reserved && SameRow(a.r, b.r) && SameRow(a.g, b.g) && SameRow(a.b, b.b);
}

bool IsKnown(const std::string& name) {
  return WithRecord<tarn::LibrarySide>(
      name, []<typename Record>(Record* /*type*/) { return sizeof(Record) > 1; });
}

Block ReadBlock(Input* input) {
  constexpr std::array<uint32_t, 4> kEntries = {1024, 257, 1, 2048};
  Block block = {.version = input->Near(56), .name = AnyName(input), .content = nullptr};
  block.len = input->Byte();
  if (input->Seldom()) return block;
  block.content = std::make_shared<Content>();
  const uint8_t enable = input->Byte();
  block.content->enable = enable >= 0xE0 ? enable : static_cast<uint8_t>(1 - enable % 2);
  block.content->filling = input->Byte();
  if (block.name == "PostBlendPCC") block.content->coeffs = input->Pcc();
  if (block.name == "PostBlendIGC" || block.name == "PostBlendGC") {
    const uint32_t usual = input->OneOf(kEntries);
    for (size_t& entries : block.content->entries) entries = input->Near(usual) % 4096;
  }
  return block;
}

template <typename Side>
layout::HwConfigPayload<Side> ToPayload(const Block& block) {
  const auto make = [&]<typename Record>(Record* /*type*/) -> std::shared_ptr<void> {
    return MakeRecord<Record>(*block.content);
  };
  return {.version = block.version,
          .hw_block = block.name,
          .payload = block.content == nullptr ? nullptr : WithRecord<Side>(block.name, make),
          .len = block.len};
}
template layout::HwConfigPayload<velaricolor::HostSide> ToPayload(const Block&);
template layout::HwConfigPayload<tarn::LibrarySide> ToPayload(const Block&);

void RequireSame(const velaricolor::HwConfigOutputParams& params, const List& list) {
  Require(params.version == list.version, "version of the list");
  Require(params.payloads.size() == list.blocks.size(), "number of blocks");
  for (size_t i = 0; i < list.blocks.size(); ++i) {
    const velaricolor::HwConfigPayload& found = params.payloads[i];
    const Block& block = list.blocks[i];
    Require(found.hw_block == block.name, "name of a block");
    Require(found.version == block.version && found.len == block.len, "version and len of a block");
    Require((found.payload == nullptr) == (block.content == nullptr), "presence of a record");
    if (block.content == nullptr) continue;
    const auto holds = [&]<typename Record>(Record* /*type*/) {
      return Holds(*static_cast<const Record*>(found.payload.get()), *block.content);
    };
    Require(WithRecord<velaricolor::HostSide>(block.name, holds), block.name.c_str());
  }
}

}  // namespace zeltarn::fuzz
