// SPDX-License-Identifier: Apache-2.0
#include <sstream>

#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/color_checker.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"

namespace zelctl {

std::string CheckerFigure(const ModeEvaluation& mode) {
  constexpr size_t kColumns = 6;
  constexpr int kPitchX = 60;
  constexpr int kPitchY = 66;
  std::ostringstream out;
  out << "<svg viewBox=\"0 0 360 264\" role=\"img\" aria-label=\"24 patches\">\n";
  const auto patches = InSet(mode, PatchSet::kColorChecker);
  for (size_t i = 0; i < patches.size(); ++i) {
    const PatchResult& result = *patches[i];
    const auto x = static_cast<int>(i % kColumns) * kPitchX + 4;
    const auto y = static_cast<int>(i / kColumns) * kPitchY + 2;
    const std::string title = result.patch.name + ": ΔE₀₀ " + Fixed(result.difference, 2) +
                              (result.reachable ? "" : ", out of the panel's gamut");
    out << "<g><title>" << Escaped(title) << "</title><rect x=\"" << x << "\" y=\"" << y
        << "\" width=\"26\" height=\"44\" fill=\"" << CssColor(mode, result.target)
        << "\"/><rect x=\"" << x + 26 << "\" y=\"" << y << "\" width=\"26\" height=\"44\" fill=\""
        << CssColor(mode, result.shown) << "\"/>";
    out << "<rect class=\"" << (result.reachable ? "edge" : "edge out") << "\" x=\"" << x
        << "\" y=\"" << y << "\" width=\"52\" height=\"44\"/><text text-anchor=\"middle\" x=\""
        << x + 26 << "\" y=\"" << y + 57 << "\">" << Fixed(result.difference, 2)
        << (result.reachable ? "" : " ⊘") << "</text></g>\n";
  }
  out << "</svg>\n";
  return Figure("ColorChecker: left target, right shown, below ΔE₀₀", out.str(),
                std::string("⊘: out of the panel's gamut. ") + kColorCheckerSource + ". " +
                    kDifferenceSource + ". The swatches suit an sRGB screen");
}

}  // namespace zelctl
