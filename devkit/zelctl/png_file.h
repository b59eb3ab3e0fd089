// SPDX-License-Identifier: Apache-2.0

// Pictures in PNG files.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace zelctl {

// Rows from top to bottom, no gap between them.
struct Picture {
  uint32_t width = 0;
  uint32_t height = 0;
  size_t channels = 3;           // red, green, blue, and alpha (not multiplied in) if 4
  std::vector<uint8_t> samples;  // 8 bits per channel
};

// Grey, palette and 16-bit pictures become 8-bit RGB or RGBA, and codes of
// another gamma than sRGB's become sRGB codes. Throws UsageError.
Picture ReadPng(const std::string& path);

// A PNG file's contents, without a word on what colours the samples stand for.
std::string EncodePng(const Picture& picture);

}  // namespace zelctl
