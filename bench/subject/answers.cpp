// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/answers.h"

#include <memory>
#include <numeric>
#include <utility>

#include "convert/block_table.h"

namespace {

constexpr size_t kBlobBytes = 4096;

template <typename T>
tarn::HwConfigPayload Block(const std::string& name, std::shared_ptr<T> record) {
  return {.hw_block = name, .payload = std::move(record), .len = sizeof(T)};
}

template <typename Record>
void Fill(uint32_t entries, Record* record) {
  if constexpr (requires { record->c0; }) {
    for (auto* list : {&record->c0, &record->c1, &record->c2}) {
      list->resize(entries);
      std::iota(list->begin(), list->end(), 0);
    }
  } else if constexpr (requires { record->blob; }) {
    record->blob.assign(kBlobBytes, 'b');
  } else if constexpr (requires { record->coeffs; }) {
    record->enable = true;
    record->coeffs.r = {0, 0.9, 0.1, 0};
    record->coeffs.g = {0, 0, 1, 0};
    record->coeffs.b = {0, 0, 0.1, 0.9};
  }
}

// Every block that reaches the host, filled as a panel's would be.
std::vector<tarn::HwConfigPayload> BuildBlocks() {
  std::vector<tarn::HwConfigPayload> blocks;
  zeltarn::layout::ForEachBlock([&]<template <typename> class Config>(const std::string& name) {
    auto record = std::make_shared<Config<tarn::LibrarySide>>();
    Fill(name == velaricolor::kPostBlendIGC ? 257 : 1024, record.get());
    blocks.push_back(Block(name, std::move(record)));
  });
  return blocks;
}

// The same without a share in the records, which live until the next set-up:
// counting references is the parser's cost, not the plug-in's.
std::vector<tarn::HwConfigPayload> Borrowed(std::vector<tarn::HwConfigPayload> blocks) {
  for (auto& block : blocks) block.payload = {std::shared_ptr<void>(), block.payload.get()};
  return blocks;
}

}  // namespace

BenchAnswers& TheAnswers() {
  static BenchAnswers answers;
  return answers;
}

std::vector<tarn::ColorMode> MakeModes(size_t count) {
  return std::vector<tarn::ColorMode>(
      count, {.gamut = 1, .gamma = 2, .intent = 3, .hw_assets = {"gamut_asset", "gamma_asset"}});
}

std::vector<tarn::HwConfigPayload> MakeBlocks() {
  static std::vector<tarn::HwConfigPayload> built;
  built = BuildBlocks();
  return Borrowed(built);
}

std::vector<tarn::HwConfigPayload> MakeManyBlocks(size_t count) {
  static const auto record = std::make_shared<tarn::DitherPostBlendConfig>();
  return Borrowed({count, Block(velaricolor::kPostBlendDither, record)});
}

std::vector<tarn::HwConfigPayload> MakeGammaBlock(uint32_t entries) {
  static std::vector<tarn::HwConfigPayload> built;
  auto record = std::make_shared<tarn::GammaPostBlendConfig>();
  Fill(entries, record.get());
  built = {Block(velaricolor::kPostBlendGC, std::move(record))};
  return Borrowed(built);
}
