// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/floor_copy.h"

#include <array>
#include <cstring>

#include "bench/subject/pairs.h"
#include "convert/block_table.h"

namespace {

// `version`, `enable` and padding, which a conversion does not move as bytes.
constexpr size_t kHeaderBytes = 8;

// Where the carried bytes of a record lie beside the record itself.
using Lists = std::vector<std::pair<const void*, size_t>>;

template <typename Record>
Lists ListsIn(const Record& record) {
  Lists lists;
  if constexpr (requires { record.c0; }) {
    for (const auto* list : {&record.c0, &record.c1, &record.c2}) {
      lists.emplace_back(list->data(), list->size() * sizeof(uint32_t));
    }
  } else if constexpr (requires { record.blob; }) {
    lists.emplace_back(record.blob.data(), record.blob.size());
  }
  return lists;
}

// Room for a record of `bytes`, left as it comes.
template <size_t kBytes>
struct Raw {
  Raw() {}  // NOLINT(modernize-use-equals-default): a defaulted one would zero
  std::array<double, kBytes / sizeof(double)> room;
};

template <typename Record>
std::shared_ptr<void> MakeRaw() {
  return std::make_shared<Raw<sizeof(Record)>>();
}

Lists ListsOf(const std::string& block, const void* record) {
  Lists lists;
  zeltarn::layout::ForEachBlock([&]<template <typename> class Config>(const std::string& name) {
    if (name != block) return;
    lists = ListsIn(*static_cast<const Config<tarn::LibrarySide>*>(record));
  });
  return lists;
}

// Null for a block that there is none of.
std::shared_ptr<void> (*MakeFor(const std::string& block))() {
  std::shared_ptr<void> (*make)() = nullptr;
  zeltarn::layout::ForEachBlock([&]<template <typename> class Config>(const std::string& name) {
    if (name == block) make = MakeRaw<Config<velaricolor::HostSide>>;
  });
  return make;
}

}  // namespace

FloorCopy::FloorCopy(const std::vector<tarn::HwConfigPayload>& from,
                     const velaricolor::HwConfigOutputParams& to) {
  for (size_t i = 0; i < from.size() && i < to.payloads.size(); ++i) {
    void* const target = to.payloads[i].payload.get();
    const Lists sources = ListsOf(from[i].hw_block, from[i].payload.get());
    const Lists targets = ListsOf(from[i].hw_block, target);
    if (sources.empty()) {
      const auto* const carried = static_cast<const char*>(from[i].payload.get()) + kHeaderBytes;
      spans_.push_back(
          {carried, static_cast<char*>(target) + kHeaderBytes, from[i].len - kHeaderBytes});
    }
    for (size_t list = 0; list < sources.size(); ++list) {
      spans_.push_back(
          {sources[list].first, const_cast<void*>(targets[list].first), sources[list].second});
    }
  }
}

void FloorCopy::Run() const {
  for (const Span& span : spans_) std::memcpy(span.to, span.from, span.bytes);
  Keep(this);
}

FloorFresh::FloorFresh(const std::vector<tarn::HwConfigPayload>& from) {
  for (const auto& payload : from) {
    records_.push_back({.from = payload.payload.get(),
                        .bytes = payload.len,
                        .make = MakeFor(payload.hw_block),
                        .lists = ListsOf(payload.hw_block, payload.payload.get())});
  }
}

void FloorFresh::Run() const {
  constexpr size_t kMostLists = 8;
  std::vector<std::shared_ptr<void>> output;
  output.reserve(records_.size());
  std::array<void*, kMostLists> rooms = {};
  size_t used = 0;
  for (const Record& record : records_) {
    output.push_back(record.make());
    if (record.lists.empty()) std::memcpy(output.back().get(), record.from, record.bytes);
    for (const auto& [from, bytes] : record.lists) {
      rooms[used] = ::operator new(bytes);
      std::memcpy(rooms[used++], from, bytes);
    }
  }
  Keep(&output);
  for (size_t i = 0; i < used; ++i) ::operator delete(rooms[i]);
}
