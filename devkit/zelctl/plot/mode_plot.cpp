// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/mode_plot.h"

#include <sstream>

#include "devkit/zelctl/plot/gamma_plot.h"
#include "devkit/zelctl/plot/gnuplot.h"
#include "devkit/zelctl/plot/pcc_plot.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

// A plot's frame in pixels from the page's upper left corner. Title, axes and
// labels lie outside.
struct Frame {
  double left;
  double top;
  double width;
  double height;
};

struct Page {
  int width;
  int height;
  Frame gamut;  // as high as wide in units of x and y
  Frame igc;
  Frame gc;
  Frame pcc;  // the first of four
};

constexpr double kPccPitch = 183;  // from one PCC plot to the next

Page PageOf(PlotKind kind) {
  switch (kind) {
    case PlotKind::kGamut:
      return {.width = 640, .height = 720, .gamut = {64, 70, 550, 588}};
    case PlotKind::kCurves:
      return {.width = 800, .height = 370, .igc = {76, 70, 300, 236}, .gc = {480, 70, 300, 236}};
    case PlotKind::kPcc:
      return {.width = 800, .height = 370, .pcc = {74, 76, 160, 210}};
    case PlotKind::kAll:
      break;
  }
  return {.width = 800,
          .height = 880,
          .gamut = {64, 70, 416, 445},
          .igc = {566, 70, 216, 170},
          .gc = {566, 345, 216, 170},
          .pcc = {74, 610, 160, 190}};
}

void Place(const Page& page, const Frame& frame, const std::string& commands, std::ostream& out) {
  const auto x = [&page](double pixels) { return pixels / page.width; };
  const auto y = [&page](double pixels) { return 1 - pixels / page.height; };
  out << "reset\n"
      << "set lmargin at screen " << x(frame.left) << '\n'
      << "set rmargin at screen " << x(frame.left + frame.width) << '\n'
      << "set tmargin at screen " << y(frame.top) << '\n'
      << "set bmargin at screen " << y(frame.top + frame.height) << '\n'
      << "set title offset 0, -0.4\n"
      << commands;
}

// A string of gnuplot's, of two lines where the page is too narrow for one.
std::string PageTitle(const ModePlot& plot, const Page& page) {
  constexpr size_t kColumnWidth = 9;  // in pixels: more than a letter's on average
  const size_t columns = static_cast<size_t>(page.width) / kColumnWidth;
  const std::string line = plot.title + " " + plot.subtitle;
  if (DisplayWidth(line) <= columns) return Quoted(line);
  return Quoted(Shortened(plot.title, columns)) + R"(."\n".)" +
         Quoted(Shortened(plot.subtitle, columns));
}

void WriteHeader(const ModePlot& plot, const Page& page, bool svg, std::ostream& out) {
  out << "set encoding utf8\n"
      << "set terminal " << (svg ? "svg" : "pngcairo") << " size " << page.width << ','
      << page.height << " font 'sans-serif," << (svg ? 12 : 9.5) << "' background '#ffffff'\n"
      << "set multiplot title " << PageTitle(plot, page) << " noenhanced font '," << (svg ? 14 : 11)
      << "'\n";
}

}  // namespace

std::string PlotScript(const ModePlot& plot, PlotKind kind, bool svg) {
  const Page page = PageOf(kind);
  std::ostringstream out;
  WriteHeader(plot, page, svg, out);
  if (HasGamut(kind)) Place(page, page.gamut, GamutPlot(*plot.gamut), out);
  if (kind == PlotKind::kAll || kind == PlotKind::kCurves) {
    Place(page, page.igc, GammaPlot(plot.pipeline.Igc()), out);
    Place(page, page.gc, GammaPlot(plot.pipeline.Gc()), out);
  }
  if (kind == PlotKind::kAll || kind == PlotKind::kPcc) {
    Frame frame = page.pcc;
    for (const std::string& commands : PccPlots(plot.pcc)) {
      Place(page, frame, commands, out);
      frame.left += kPccPitch;
    }
  }
  out << "unset multiplot\n";
  return out.str();
}

}  // namespace zelctl
