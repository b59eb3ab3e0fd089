// Records as bytes, to compare them paddings and all, and envelopes.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
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

// Version, length and property.
using Envelope = std::array<uint32_t, 3>;

template <typename Payload>
Envelope EnvelopeOf(const Payload& payload) {
  return {payload.version, payload.len, payload.prop};
}
