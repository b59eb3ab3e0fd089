// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/gamma_plot.h"

#include <sstream>

#include "devkit/zelctl/plot/gnuplot.h"

namespace zelctl {
namespace {

using tarn::reference::GammaAxis;

// The table as it is, entry by entry; two blank lines end a channel.
void WriteTables(const GammaBlock& block, std::ostream& out) {
  for (const auto& table : block.Tables()) {
    for (size_t i = 0; i < table.size(); ++i) {
      out << AxisInput(block.Axis(), i, table.size()) << ' '
          << table[i] / tarn::reference::MaxCode(block.BitDepth()) << '\n';
    }
    out << "\n\n";
  }
}

std::string Title(const GammaBlock& block) {
  const std::string name = block.Axis() == GammaAxis::kIgc ? "IGC" : "GC";
  if (block.Passes()) return name + ": off, values pass";
  return name + ": " + std::to_string(block.Tables()[0].size()) + " entries of " +
         std::to_string(block.BitDepth()) + " bits";
}

const char* Plot(const GammaBlock& block) {
  const auto& tables = block.Tables();
  if (block.Passes()) return "plot x linewidth 2 linecolor '#909090' title 'R = G = B'\n";
  if (tables[0] == tables[1] && tables[1] == tables[2]) {
    return "plot $curve index 0 with lines linewidth 2 linecolor '#202020' title 'R = G = B'\n";
  }
  return R"(plot $curve index 0 with lines linewidth 2 linecolor '#d03030' title 'R', \
  $curve index 1 with lines linewidth 2 linecolor '#2a9d4a' title 'G', \
  $curve index 2 with lines linewidth 2 linecolor '#2f5fd0' title 'B'
)";
}

}  // namespace

std::string GammaPlot(const GammaBlock& block) {
  const bool igc = block.Axis() == GammaAxis::kIgc;
  std::ostringstream out;
  out << "$curve << EOD\n";
  WriteTables(block, out);
  out << "EOD\n"
      << "set title " << Quoted(Title(block)) << '\n'
      << "set xlabel '" << (igc ? "signal (1: full)" : "linear light (1: peak)") << "'\n"
      << "set ylabel '" << (igc ? "linear light (1: peak)" : "panel signal (1: full)") << "'\n"
      << "set xrange [0:1]\n"
         "set yrange [0:1]\n"
         "set xtics 0.25\n"
         "set ytics 0.25\n"
         "set grid linecolor '#e4e4e4' linetype 1\n"
      << "set key " << (igc ? "top left" : "bottom right") << " Left reverse samplen 2\n"
      << Plot(block);
  return out.str();
}

}  // namespace zelctl
