// SPDX-License-Identifier: Apache-2.0
#include "devkit/reference/panel/read_bytes.h"

#include <charconv>

namespace tarn::reference {
namespace {

void CheckSize(const JsonValue& value, size_t size, size_t max) {
  if (size <= max) return;
  value.Refuse("expected at most " + std::to_string(max) + " bytes, found " + std::to_string(size));
}

}  // namespace

std::string BytesOf(const JsonValue& value, size_t max) {
  const std::string digits = value.Text();
  if (digits.size() % 2 != 0) value.Refuse("expected two hexadecimal digits per byte");
  CheckSize(value, digits.size() / 2, max);
  std::string bytes;
  bytes.reserve(digits.size() / 2);
  for (size_t i = 0; i < digits.size(); i += 2) {
    uint8_t byte = 0;
    const char* pair = digits.data() + i;
    if (std::from_chars(pair, pair + 2, byte, 16).ptr != pair + 2) {
      value.Refuse("expected hexadecimal digits, at character " + std::to_string(i));
    }
    bytes.push_back(static_cast<char>(byte));
  }
  return bytes;
}

std::string TextBytesOf(const JsonValue& value, size_t max) {
  std::string text = value.Text();
  CheckSize(value, text.size(), max);
  return text;
}

}  // namespace tarn::reference
