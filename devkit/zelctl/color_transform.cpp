// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/color_transform.h"

#include <map>
#include <vector>

#include "devkit/zelctl/color_blindness.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/night_light.h"
#include "devkit/zelctl/suggestion.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using velaricolor::ColorTransformMatrix;

constexpr const char* kNightPrefix = "night:";

ColorTransformMatrix Transform(const tarn::color::Mat3& linear, double offset = 0) {
  ColorTransformMatrix transform;
  for (size_t row = 0; row < 3; ++row) {
    for (size_t column = 0; column < 3; ++column) {
      transform.matrix[4 * column + row] = static_cast<float>(linear[row][column]);
    }
    transform.matrix[12 + row] = static_cast<float>(offset);
  }
  return transform;
}

// Every channel becomes the luminance: ITU-R BT.709, section 3, item 3.2.
ColorTransformMatrix Grayscale() {
  constexpr Vec3 kLuminance = {0.2126, 0.7152, 0.0722};
  return Transform({kLuminance, kLuminance, kLuminance});
}

// c becomes 1 - c.
ColorTransformMatrix Inversion() { return Transform(tarn::color::Diagonal({-1, -1, -1}), 1); }

ColorTransformMatrix ParseNight(const std::string& text) {
  if (text.empty()) throw UsageError("night light takes 1667 to 25000 kelvin, as night:3400");
  const double kelvin = ParseNumber(text);
  if (kelvin < kMinKelvin || kelvin > kMaxKelvin) {
    throw UsageError("night light takes 1667 to 25000 kelvin, not " + text);
  }
  return Transform(NightLight(kelvin));
}

ColorTransformMatrix ParseMatrix(const std::string& text) {
  const std::vector<std::string> numbers = Split(text, ", \t");
  ColorTransformMatrix transform;
  if (numbers.size() != transform.matrix.size()) {
    throw UsageError("a matrix takes 16 numbers, not " + std::to_string(numbers.size()) + ": '" +
                     text + "'");
  }
  for (size_t i = 0; i < numbers.size(); ++i) transform.matrix[i] = ParseFloat(numbers[i]);
  return transform;
}

}  // namespace

ColorTransformMatrix ParseColorTransform(const std::string& text) {
  const std::map<std::string, ColorTransformMatrix> named = {
      {"identity", Transform(tarn::color::kIdentity)},
      {"grayscale", Grayscale()},
      {"inversion", Inversion()},
      {"protanomaly", Transform(ProtanomalyCorrection())},
      {"deuteranomaly", Transform(DeuteranomalyCorrection())},
      {"tritanomaly", Transform(TritanomalyCorrection())},
  };
  if (const auto found = named.find(text); found != named.end()) return found->second;
  if (text.rfind(kNightPrefix, 0) == 0) return ParseNight(text.substr(6));
  if (text.find_first_of("0123456789+-.") == 0 || text.find(',') != std::string::npos) {
    return ParseMatrix(text);
  }
  std::vector<std::string> names = {"night:KELVIN"};
  for (const auto& [name, transform] : named) names.push_back(name);
  std::string all;
  for (const auto& name : names) all += name + ", ";
  throw UsageError("no colour transform '" + text + "'; there are " + all + "and 16 numbers" +
                   DidYouMean(text, names));
}

}  // namespace zelctl
