// SPDX-License-Identifier: Apache-2.0
#include <cmath>

#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"

namespace zelctl {

using tarn::color::Inverse;
using tarn::color::Multiply;
using tarn::color::Vec3;

std::string Figure(const std::string& title, const std::string& drawing,
                   const std::string& sources) {
  return "<figure><h3>" + Escaped(title) + "</h3>\n" + drawing + "<figcaption>" + Escaped(sources) +
         "</figcaption></figure>\n";
}

std::string CssColor(const ModeEvaluation& mode, const Appearance& seen) {
  const Vec3& white = mode.reference_white.xyz;
  const auto to_srgb =
      Multiply(Inverse(RgbToXyz(tarn::color::kSrgb)),
               BradfordAdaptation(tarn::color::ToChromaticity(white), tarn::color::kSrgb.white));
  Vec3 relative;
  for (size_t i = 0; i < 3; ++i) relative[i] = seen.xyz[i] / white[1];
  std::string text = "rgb(";
  const Vec3 light = Multiply(to_srgb, relative);
  for (size_t i = 0; i < 3; ++i) {
    const double signal = tarn::color::SrgbToSignal(std::fmin(std::fmax(light[i], 0), 1));
    text += (i == 0 ? "" : " ") + Fixed(255 * signal, 0);
  }
  return text + ")";
}

}  // namespace zelctl
