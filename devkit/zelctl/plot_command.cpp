#include <filesystem>

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/plot/gnuplot.h"
#include "devkit/zelctl/plot/mode_plot.h"
#include "devkit/zelctl/render_options.h"
#include "devkit/zelctl/rounds.h"

namespace zelctl {
namespace {

constexpr const char* kSvg = ".svg";
constexpr const char* kPng = ".png";

// Primaries are not part of any block: they come from the panel's description.
GamutDiagram ReadGamutDiagram(const std::string& path, const velaricolor::ColorMode& id,
                              const BlockPipeline& pipeline) {
  try {
    const tarn::reference::Panel panel = tarn::reference::ReadPanel(path);
    for (const auto& mode : panel.modes) {
      if (mode.id.gamut == id.gamut && mode.id.gamma == id.gamma && mode.id.intent == id.intent) {
        return MakeGamutDiagram(panel, mode.target, pipeline);
      }
    }
  } catch (const tarn::reference::PanelError& e) {
    throw UsageError(e.what());
  }
  throw UsageError(path + " has no mode " + ModeIds(id));
}

}  // namespace

void RunPlot(const GlobalOptions& globals, const PlotArguments& arguments) {
  if (globals.json) throw UsageError("plot takes no --json: it prints nothing");
  const bool svg = RequireEnding(arguments.output, {kSvg, kPng}) == kSvg;
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const size_t mode = SelectMode(list, arguments.mode);
  ApplySizesAndNotifications(arguments.options, &session);

  velaricolor::HwConfigOutputParams output;
  const auto pcc = RunRounds(StepByStep(arguments.options, list, mode), list, &session, &output);
  std::string title = "Mode " + ModeTitle(list, mode) + " of " +
                      std::filesystem::path(globals.session.panel).stem().string();
  for (size_t i = 1; i < pcc.size(); ++i) title += " " + pcc[i].label;
  ModePlot plot = {
      .title = title,
      .pipeline = {output, arguments.options.igc.BitDepth(), arguments.options.gc.BitDepth()},
      .pcc = pcc,
      .gamut = {}};
  if (HasGamut(arguments.kind)) {
    plot.gamut = ReadGamutDiagram(globals.session.panel, list.modes[mode], plot.pipeline);
  }
  WriteOutput(arguments.output, RunGnuplot(PlotScript(plot, arguments.kind, svg)));
}

}  // namespace zelctl
