// SPDX-License-Identifier: Apache-2.0

// Records as bytes, to compare them paddings and all, and envelopes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <vector>

using Bytes = std::vector<uint8_t>;

inline Bytes BytesAt(const void* address, size_t size) {
  const auto* const begin = static_cast<const uint8_t*>(address);
  return {begin, begin + size};
}

template <typename T>
Bytes BytesOf(const T& record) {
  return BytesAt(&record, sizeof(T));
}

// The first four words of a record, paddings among them.
using Words = std::array<uint32_t, 4>;

template <typename T>
Words WordsOf(const T& record) {
  Words words = {};
  std::memcpy(words.data(), &record, sizeof words);
  return words;
}
