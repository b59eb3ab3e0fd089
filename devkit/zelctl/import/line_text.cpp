// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/import/line_text.h"

#include <algorithm>
#include <sstream>

namespace zelctl {

std::string NumberText(double value) {
  std::ostringstream text;
  text << value;
  return text.str();
}

std::string DifferenceText(double ciede2000) {
  std::ostringstream text;
  text.precision(3);
  text << std::fixed << "CIEDE2000 " << ciede2000;
  return text.str();
}

std::string ChromaticityText(const tarn::color::Chromaticity& xy) {
  std::ostringstream text;
  text.precision(4);
  text << std::fixed << "x " << xy.x << " y " << xy.y;
  return text.str();
}

std::string PlainText(std::string_view text) {
  constexpr size_t kLongest = 100;
  std::string plain(text.substr(0, kLongest));
  std::replace_if(
      plain.begin(), plain.end(), [](char c) { return c < ' ' || c > '~'; }, '?');
  return plain;
}

}  // namespace zelctl
