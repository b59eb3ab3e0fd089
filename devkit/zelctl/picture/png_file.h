// SPDX-License-Identifier: Apache-2.0

// Pictures in PNG files.
#pragma once

#include <string>

#include "devkit/zelctl/picture/picture.h"

namespace zelctl {

// Grey and palette pictures become RGB or RGBA, fewer than 8 bits become 8, and codes of
// another gamma than sRGB's become sRGB codes. Throws UsageError.
Picture ReadPng(const std::string& path);

enum class PngSize { kQuick, kSmall };

// A PNG file's contents, without a word on what colours the samples stand for. A small
// file takes several times as long.
std::string EncodePng(Picture* picture, PngSize size);

}  // namespace zelctl
