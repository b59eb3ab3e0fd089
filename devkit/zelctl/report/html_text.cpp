// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/html_text.h"

#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace zelctl {
namespace {

constexpr const char* kNoNumber = "–";
constexpr const char* kReplacement = "\xef\xbf\xbd";

// Bytes of the UTF-8 sequence at `at`; 0 where there is none.
size_t SequenceLength(const std::string& text, size_t at) {
  const auto byte = [&text](size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t lead = byte(at);
  size_t length = 0;
  if (lead < 0x80) length = 1;
  if (lead >= 0xc2 && lead < 0xe0) length = 2;
  if (lead >= 0xe0 && lead < 0xf0) length = 3;
  if (lead >= 0xf0 && lead < 0xf5) length = 4;
  if (length == 0 || at + length > text.size()) return 0;
  for (size_t i = 1; i < length; ++i) {
    if ((byte(at + i) & 0xc0) != 0x80) return 0;
  }
  return length;
}

}  // namespace

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (size_t at = 0; at < text.size();) {
    const size_t length = SequenceLength(text, at);
    switch (text[at]) {
      case '&':
        escaped += "&amp;";
        break;
      case '<':
        escaped += "&lt;";
        break;
      case '>':
        escaped += "&gt;";
        break;
      case '"':
        escaped += "&quot;";
        break;
      case '\'':
        escaped += "&#39;";
        break;
      default:
        escaped += length == 0 ? kReplacement : text.substr(at, length);
    }
    at += length == 0 ? 1 : length;
  }
  return escaped;
}

std::string Fixed(double value, int places) {
  if (!std::isfinite(value)) return kNoNumber;
  std::array<char, 352> text = {};  // the largest double has 309 digits
  std::snprintf(text.data(), text.size(), "%.*f", places, value);
  const std::string result = text.data();
  const bool is_zero = result.find_first_not_of("-0.") == std::string::npos;
  return is_zero && result[0] == '-' ? result.substr(1) : result;
}

std::string Significant(double value) {
  if (!std::isfinite(value)) return kNoNumber;
  std::array<char, 32> text = {};
  std::snprintf(text.data(), text.size(), "%.4g", value);
  return text.data();
}

}  // namespace zelctl
