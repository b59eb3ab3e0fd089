// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/pcc_plot.h"

#include <algorithm>
#include <sstream>

#include "devkit/zelctl/plot/gnuplot.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;

struct Input {
  const char* title;
  Vec3 light;
};
constexpr std::array<Input, 4> kInputs = {{{"PCC: red in", {1, 0, 0}},
                                           {"PCC: green in", {0, 1, 0}},
                                           {"PCC: blue in", {0, 0, 1}},
                                           {"PCC: white in", {1, 1, 1}}}};

constexpr size_t kLongestTick = 14;  // columns that fit under a bar, slanted

std::vector<Vec3> AfterSteps(const std::vector<PccStep>& steps, const Vec3& light) {
  std::vector<Vec3> results;
  results.reserve(steps.size());
  for (const PccStep& step : steps) results.push_back(ApplyPcc(step.pcc, light));
  return results;
}

void WriteData(const std::vector<Vec3>& results, std::ostream& out) {
  out << "$pcc << EOD\n";
  for (const Vec3& rgb : results) out << rgb[0] << ' ' << rgb[1] << ' ' << rgb[2] << '\n';
  out << "EOD\n";
}

// One bar per channel at every step.
void WritePlot(const Input& input, const std::vector<PccStep>& steps, std::ostream& out) {
  WriteData(AfterSteps(steps, input.light), out);
  out << "set title '" << input.title << "'\nset xtics (";
  for (size_t i = 0; i < steps.size(); ++i) {
    out << (i == 0 ? "" : ", ") << Quoted(Shortened(steps[i].label, kLongestTick)) << ' ' << i;
  }
  out << ") noenhanced rotate by 35 right\n"
      << "set xrange [-0.6:" << static_cast<double>(steps.size()) - 0.4 << "]\n";
}

constexpr const char* kPccCommands = R"(
set grid ytics linecolor '#e4e4e4' linetype 1
set style data histogram
set style histogram clustered gap 1
set style fill solid 0.85
set arrow from graph 0, first 0 to graph 1, first 0 nohead linecolor '#202020'
set arrow from graph 0, first 1 to graph 1, first 1 nohead dashtype 2 linecolor '#202020'
plot $pcc using 1 linecolor '#d03030' title 'R', \
  $pcc using 2 linecolor '#2a9d4a' title 'G', \
  $pcc using 3 linecolor '#2f5fd0' title 'B'
)";

}  // namespace

std::array<std::string, 4> PccPlots(const std::vector<PccStep>& steps) {
  double low = 0;
  double high = 1;
  for (const Input& input : kInputs) {
    for (const Vec3& rgb : AfterSteps(steps, input.light)) {
      low = std::min(low, *std::min_element(rgb.begin(), rgb.end()));
      high = std::max(high, *std::max_element(rgb.begin(), rgb.end()));
    }
  }
  const double margin = 0.05 * (high - low);
  const double legend = 0.2 * (high - low);
  std::array<std::string, 4> plots;
  for (size_t i = 0; i < kInputs.size(); ++i) {
    std::ostringstream out;
    WritePlot(kInputs[i], steps, out);
    out << "set yrange [" << low - margin << ':' << high + legend << "]\n"
        << "set ytics " << (high - low <= 2 ? "0.25" : "autofreq") << '\n';
    if (i == 0) {
      out << "set ylabel 'linear light out (1: peak)'\n";
    } else {
      out << "set format y ''\n";
    }
    out << "set key " << (i == 0 ? "top center horizontal maxrows 1 samplen 1 width 0.6" : "off")
        << '\n'
        << kPccCommands;
    plots[i] = out.str();
  }
  return plots;
}

}  // namespace zelctl
