// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <cmath>
#include <sstream>

#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

constexpr double kLeft = 112;
constexpr double kWidth = 232;
constexpr double kRow = 34;
constexpr size_t kLongestLabel = 16;

double X(double difference, double largest) { return kLeft + kWidth * difference / largest; }

// A bar up to the mean, and a mark at the largest.
void DrawSet(const char* style, const Differences& set, double y, double largest,
             std::ostream& out) {
  if (set.count == 0) return;
  out << "<rect class=\"bar " << style << "\" x=\"" << kLeft << "\" y=\"" << y
      << "\" height=\"9\" width=\"" << Fixed(std::max(X(set.mean, largest) - kLeft, 0.8), 1)
      << "\"><title>mean " << Fixed(set.mean, 2) << ", largest " << Fixed(set.max, 2)
      << "</title></rect>"
      << "<path class=\"line " << style << "\" d=\"M" << Fixed(X(set.max, largest), 1) << ' ' << y
      << "v9M" << kLeft << ' ' << y + 4.5 << "H" << Fixed(X(set.max, largest), 1) << "\"/>\n";
}

}  // namespace

std::string OverviewFigure(const Report& report) {
  double largest = 1;
  for (const ModeEvaluation& mode : report.modes) {
    largest = std::max({largest, mode.summaries[0].reachable.max, mode.summaries[1].reachable.max});
  }
  largest = std::ceil(largest);
  const double bottom = kRow * static_cast<double>(report.modes.size()) + 6;
  std::ostringstream out;
  out << "<svg viewBox=\"0 0 360 " << bottom + 52 << "\" role=\"img\" aria-label=\"All modes\">\n";
  for (int i = 0; i <= 4; ++i) {
    const double value = largest * i / 4;
    out << "<path class=\"grid\" d=\"M" << X(value, largest) << " 2V" << bottom
        << "\"/><text text-anchor=\"middle\" x=\"" << X(value, largest) << "\" y=\"" << bottom + 14
        << "\">" << Significant(value) << "</text>\n";
  }
  double y = 6;
  for (const ModeEvaluation& mode : report.modes) {
    out << "<a href=\"#mode-" << mode.index << "\"><text text-anchor=\"end\" x=\"" << kLeft - 6
        << "\" y=\"" << y + 15 << "\">" << Escaped(Shortened(mode.label, kLongestLabel))
        << "</text></a>\n";
    DrawSet("shown", mode.summaries[0].reachable, y, largest, out);
    DrawSet("ink", mode.summaries[1].reachable, y + 13, largest, out);
    y += kRow;
  }
  out << "<text text-anchor=\"middle\" x=\"" << kLeft + kWidth / 2 << "\" y=\"" << bottom + 29
      << "\">ΔE₀₀: bar to the mean, mark at the largest</text>"
      << "<rect class=\"bar shown\" x=\"112\" y=\"" << bottom + 37
      << "\" width=\"18\" height=\"9\"/><text class=\"small\" x=\"136\" y=\"" << bottom + 46
      << "\">24 patches</text><rect class=\"bar ink\" x=\"228\" y=\"" << bottom + 37
      << "\" width=\"18\" height=\"9\"/><text class=\"small\" x=\"252\" y=\"" << bottom + 46
      << "\">33 greys</text>\n</svg>\n";
  return Figure("Colour differences of all modes", out.str(),
                std::string("Of the colours that the panel can show, after 8-bit output. ") +
                    kDifferenceSource);
}

}  // namespace zelctl
