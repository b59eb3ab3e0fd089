// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/svg_plot.h"

#include <algorithm>
#include <cmath>

#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/shown_number.h"

namespace zelctl {
namespace {

constexpr double kWidth = 300;
constexpr double kLeft = 48;
constexpr double kTop = 8;
constexpr double kRight = 12;
constexpr double kBottom = 36;
constexpr double kLegendRow = 17;
constexpr double kWhole = kLeft + kWidth + kRight;

std::string Px(double pixels) { return Fixed(pixels, 1); }

std::string Tooltip(const std::string& text) {
  return text.empty() ? "" : "<title>" + Escaped(text) + "</title>";
}

// As many places as tell one tick from the next.
std::string TickText(double value, double tick) {
  constexpr int kMostPlaces = 6;
  int places = 0;
  for (double rest = tick; places < kMostPlaces && std::abs(rest - std::round(rest)) > 1e-6;) {
    rest *= 10;
    ++places;
  }
  return Fixed(value, places);
}

}  // namespace

PlotAxis AxisFromZero(const std::string& title, double high) {
  constexpr double kSteps = 4;
  const double rough = std::max(high, 1e-6) / kSteps;
  const double power = std::pow(10, std::floor(std::log10(rough)));
  double tick = 10 * power;
  for (const double factor : {5.0, 2.5, 2.0, 1.0}) {
    if (factor * power >= rough * (1 - 1e-9)) tick = factor * power;
  }
  return {title, 0, tick * std::ceil(high / tick - 1e-9), tick};
}

SvgPlot::SvgPlot(const std::string& name, const PlotAxis& x, const PlotAxis& y, double height)
    : name_(name), x_(x), y_(y), height_(height) {}

double SvgPlot::X(double x) const { return kWidth * (x - x_.low) / (x_.high - x_.low); }

// What lies far outside would only make numbers long.
double SvgPlot::Y(double y) const {
  return height_ * (1 - std::clamp((y - y_.low) / (y_.high - y_.low), -1.0, 2.0));
}

std::string SvgPlot::Coordinates(const std::vector<PlotPoint>& points) const {
  std::string text;
  for (const PlotPoint& point : points) text += Px(X(point.x)) + "," + Px(Y(point.y)) + " ";
  return text;
}

void SvgPlot::Line(const std::string& style, const std::vector<PlotPoint>& points) {
  marks_ << "<polyline class=\"line " << style << "\" points=\"" << Coordinates(points) << "\"/>\n";
}

void SvgPlot::Area(const std::string& style, const std::vector<PlotPoint>& corners) {
  marks_ << "<polygon class=\"" << style << "\" points=\"" << Coordinates(corners) << "\"/>\n";
}

void SvgPlot::Dot(const std::string& style, const PlotPoint& at, const std::string& tooltip) {
  marks_ << "<circle class=\"dot " << style << "\" cx=\"" << Px(X(at.x)) << "\" cy=\""
         << Px(Y(at.y)) << "\" r=\"3.2\">" << Tooltip(tooltip) << "</circle>\n";
}

void SvgPlot::Cross(const std::string& style, const PlotPoint& at) {
  constexpr double kArm = 5;
  const double x = X(at.x);
  const double y = Y(at.y);
  marks_ << "<path class=\"line " << style << "\" d=\"M" << Px(x - kArm) << ' ' << Px(y) << "H"
         << Px(x + kArm) << "M" << Px(x) << ' ' << Px(y - kArm) << "V" << Px(y + kArm) << "\"/>\n";
}

void SvgPlot::Bar(const std::string& style, double x, double width, double y,
                  const std::string& tooltip) {
  const double top = Y(y);
  marks_ << "<rect class=\"bar " << style << "\" x=\"" << Px(X(x)) << "\" y=\"" << Px(top)
         << "\" width=\"" << Px(X(x + width) - X(x)) << "\" height=\"" << Px(Y(y_.low) - top)
         << "\">" << Tooltip(tooltip) << "</rect>\n";
}

void SvgPlot::Text(const PlotPoint& at, const std::string& text) {
  marks_ << "<text class=\"small label\" text-anchor=\"middle\" x=\"" << Px(X(at.x)) << "\" y=\""
         << Px(Y(at.y) + 3) << "\">" << Escaped(text) << "</text>\n";
}

void SvgPlot::Legend(const std::vector<LegendEntry>& entries) {
  constexpr size_t kColumns = 2;
  constexpr double kColumn = kWidth / kColumns;
  for (size_t i = 0; i < entries.size(); ++i) {
    const double x = kLeft + kColumn * static_cast<double>(i % kColumns);
    const size_t row = i / kColumns;
    const double y = kTop + height_ + kBottom + kLegendRow * (static_cast<double>(row) + 0.5);
    if (entries[i].key == LegendKey::kBar) {
      legend_ << "<rect class=\"bar " << entries[i].style << "\" x=\"" << Px(x) << "\" y=\""
              << Px(y - 4.5) << "\" width=\"18\" height=\"9\"/>";
    } else {
      legend_ << "<path class=\"line " << entries[i].style << "\" d=\"M" << Px(x) << ' ' << Px(y)
              << "h18\"/>";
    }
    legend_ << "<text class=\"small\" x=\"" << Px(x + 24) << "\" y=\"" << Px(y + 4) << "\">"
            << Escaped(entries[i].text) << "</text>\n";
  }
  const size_t rows = (entries.size() + 1) / kColumns;
  legend_height_ = kLegendRow * static_cast<double>(rows);
}

std::string SvgPlot::Axes() const {
  std::ostringstream out;
  const double bottom = kTop + height_;
  constexpr double kRounding = 1e-9;
  for (double x = x_.low; x_.tick > 0 && x <= x_.high + kRounding * x_.tick; x += x_.tick) {
    const double at = kLeft + X(x);
    out << "<path class=\"grid\" d=\"M" << Px(at) << ' ' << kTop << "V" << Px(bottom)
        << "\"/><text text-anchor=\"middle\" x=\"" << Px(at) << "\" y=\"" << Px(bottom + 14)
        << "\">" << TickText(x, x_.tick) << "</text>\n";
  }
  for (double y = y_.low; y_.tick > 0 && y <= y_.high + kRounding * y_.tick; y += y_.tick) {
    const double at = kTop + Y(y);
    out << "<path class=\"grid\" d=\"M" << kLeft << ' ' << Px(at) << "h" << kWidth
        << "\"/><text text-anchor=\"end\" x=\"" << kLeft - 5 << "\" y=\"" << Px(at + 4) << "\">"
        << TickText(y, y_.tick) << "</text>\n";
  }
  out << "<text text-anchor=\"middle\" x=\"" << kLeft + kWidth / 2 << "\" y=\"" << Px(bottom + 29)
      << "\">" << Escaped(x_.title)
      << "</text><text text-anchor=\"middle\" transform=\"translate(11 " << Px(kTop + height_ / 2)
      << ") rotate(-90)\">" << Escaped(y_.title) << "</text>\n";
  return out.str();
}

std::string SvgPlot::Finish() const {
  std::ostringstream out;
  out << "<svg viewBox=\"0 0 " << kWhole << ' ' << Px(kTop + height_ + kBottom + legend_height_)
      << "\" role=\"img\" aria-label=\"" << Escaped(name_) << "\">\n"
      << Axes() << "<svg x=\"" << kLeft << "\" y=\"" << kTop << "\" width=\"" << kWidth
      << "\" height=\"" << Px(height_) << "\">\n"
      << marks_.str() << "</svg>\n"
      << legend_.str() << "</svg>\n";
  return out.str();
}

}  // namespace zelctl
