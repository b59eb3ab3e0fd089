// SPDX-License-Identifier: Apache-2.0

// Reading the arrays and byte strings of typed records. What is absent, or
// after the end of a shorter byte string, stays zero.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>

#include "devkit/reference/panel/json_reader.h"

namespace tarn::reference {

inline constexpr size_t kMaxBlobBytes = 1 << 20;

// A text of hexadecimal digits, two per byte, of at most `max` bytes.
std::string BytesOf(const JsonValue& value, size_t max);

// The bytes of a text as they are, of which there are at most `max`.
std::string TextBytesOf(const JsonValue& value, size_t max);

template <size_t N>
void ReadBytes(const std::optional<JsonValue>& value, std::array<uint8_t, N>* bytes) {
  if (!value) return;
  const std::string text = BytesOf(*value, N);
  std::copy(text.begin(), text.end(), bytes->begin());
}

// An array of exactly N numbers of type T, none above `max`.
template <typename T, size_t N>
void ReadArray(const std::optional<JsonValue>& value, std::array<T, N>* array,
               T max = std::numeric_limits<T>::max()) {
  if (!value) return;
  size_t index = 0;
  for (const JsonValue& element : value->Elements(N, N)) {
    if constexpr (std::is_floating_point_v<T>) {
      (*array)[index++] = static_cast<T>(element.Number({-max, max}));
    } else {
      (*array)[index++] = static_cast<T>(element.Integer(std::numeric_limits<T>::min(), max));
    }
  }
}

}  // namespace tarn::reference
