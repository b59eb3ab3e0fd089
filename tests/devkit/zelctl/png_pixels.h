// Small pictures for the tests.
#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

using Pixel = std::array<uint8_t, 4>;  // red, green, blue, alpha
using Pixels = std::vector<Pixel>;

// One row of pixels, as the contents of a PNG file.
std::string PngOf(const Pixels& row);

// All pixels of the PNG file at `path`; none where it can't be read.
Pixels ReadPixels(const std::string& path);
