// SPDX-License-Identifier: Apache-2.0

// A plot as inline SVG: a frame with axes, and what is drawn in it.
#pragma once

#include <sstream>
#include <string>
#include <vector>

namespace zelctl {

struct PlotPoint {
  double x;
  double y;
};

struct PlotAxis {
  std::string title;  // what and in which unit
  double low;
  double high;
  double tick;  // distance from one label to the next; 0: no labels
};

// The range from 0 to at least `high`, in round steps.
PlotAxis AxisFromZero(const std::string& title, double high);

enum class LegendKey { kLine, kBar };

struct LegendEntry {
  std::string style;  // the class of the line or mark
  std::string text;
  LegendKey key = LegendKey::kLine;
};

// Everything is in the units of the axes, and cut off at the frame. Styles are classes of
// the page (page_style.h). Texts are escaped here.
class SvgPlot {
 public:
  // `height` of the frame in pixels; it is 300 wide, the whole 360.
  SvgPlot(const std::string& name, const PlotAxis& x, const PlotAxis& y, double height);

  void Line(const std::string& style, const std::vector<PlotPoint>& points);
  void Area(const std::string& style, const std::vector<PlotPoint>& corners);
  void Dot(const std::string& style, const PlotPoint& at, const std::string& tooltip = "");
  void Cross(const std::string& style, const PlotPoint& at);
  // From the x axis up; `width` in units of x.
  void Bar(const std::string& style, double x, double width, double y,
           const std::string& tooltip = "");
  void Text(const PlotPoint& at, const std::string& text);
  // Below the axes, in columns.
  void Legend(const std::vector<LegendEntry>& entries);

  // The whole element.
  std::string Finish() const;

 private:
  double X(double x) const;
  double Y(double y) const;
  std::string Coordinates(const std::vector<PlotPoint>& points) const;
  std::string Axes() const;

  std::string name_;
  PlotAxis x_;
  PlotAxis y_;
  double height_;
  double legend_height_ = 0;
  std::ostringstream marks_;
  std::ostringstream legend_;
};

}  // namespace zelctl
