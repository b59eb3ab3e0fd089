// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/markup_text.h"

#include <cstdint>

namespace zelctl {
namespace {

constexpr const char* kReplacement = "\xef\xbf\xbd";

// Bytes of the UTF-8 sequence at `at`; 0 where there is none, or a control character.
size_t SequenceLength(const std::string& text, size_t at) {
  const auto byte = [&text](size_t i) { return static_cast<uint8_t>(text[i]); };
  const uint8_t lead = byte(at);
  size_t length = 0;
  if ((lead >= 0x20 && lead < 0x7f) || lead == '\t' || lead == '\n' || lead == '\r') length = 1;
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

}  // namespace zelctl
