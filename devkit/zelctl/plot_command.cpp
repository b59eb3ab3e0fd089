// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <iostream>
#include <optional>

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/kept_inputs.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/own_panel.h"
#include "devkit/zelctl/plot/fonts.h"
#include "devkit/zelctl/plot/gnuplot.h"
#include "devkit/zelctl/plot/mode_plot.h"
#include "devkit/zelctl/render_options.h"
#include "devkit/zelctl/render_steps.h"
#include "devkit/zelctl/text_width.h"

namespace zelctl {
namespace {

constexpr const char* kSvg = ".svg";
constexpr const char* kPng = ".png";

using tarn::reference::Panel;

constexpr size_t kLongestName = 40;  // leaves room for the settings

// What the panel's description says of itself; null where it is not of the reference
// parser's form, as another parser's may be.
std::optional<Panel> TryReadPanel(const std::string& path) {
  try {
    return tarn::reference::ReadPanel(path);
  } catch (const tarn::reference::PanelError&) {
    return std::nullopt;
  }
}

// The text, or where the fonts lack a character of it what is said instead.
std::string Showable(const std::string& text, const std::string& instead, bool svg) {
  if (svg) return text;  // the viewer's fonts decide
  const Fonts fonts = FontsFor(text);
  if (fonts == Fonts::kHaveIt) return text;
  std::cerr << "zelctl: "
            << (fonts == Fonts::kLackIt ? "no font here has all characters of '"
                                        : "can't run fc-list, of the package fontconfig, to see "
                                          "whether fonts have all characters of '")
            << OneLine(text) << "': shown as '" << instead << "'\n";
  return instead;
}

std::string PanelName(const std::string& path, bool svg) {
  const std::string stem = std::filesystem::path(path).stem().string();
  const std::optional<Panel> panel = TryReadPanel(path);
  const std::string name = panel && !panel->name.empty() ? panel->name : stem;
  return Shortened(Showable(name, "the panel", svg), kLongestName);
}

// gnuplot titles every SVG document with its own name.
std::string WithTitle(std::string svg, const std::string& title) {
  const std::string own = "<title>Gnuplot</title>";
  const size_t place = svg.find(own);
  if (place == std::string::npos) return svg;
  std::string escaped;
  for (const char c : OneLine(title)) {
    escaped += c == '&' ? "&amp;" : c == '<' ? "&lt;" : std::string(1, c);
  }
  return svg.replace(place, own.size(), "<title>" + escaped + "</title>");
}

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
  KeepInputs(arguments.output, globals, arguments.options);
  if (HasGamut(arguments.kind)) {
    RequireOwnPanel(globals, "the gamut; --what curves and --what pcc need none");
  }
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const size_t mode = SelectMode(list, arguments.mode);
  ApplySizesAndNotifications(arguments.options, &session);

  velaricolor::HwConfigOutputParams output;
  auto pcc = RunSteps(StepByStep(arguments.options, list, mode), list, &session, &output);
  const std::string index = "mode " + std::to_string(mode);
  pcc.front().label = Showable(list.modes[mode].label, index, svg);
  const std::string label = pcc.front().label == index ? "" : " " + pcc.front().label;
  const std::string title =
      "Mode " + std::to_string(mode) + label + " (" + ModeIds(list.modes[mode]) + ")";
  std::string subtitle = "of " + PanelName(globals.session.panel, svg);
  for (size_t i = 1; i < pcc.size(); ++i) subtitle += " " + pcc[i].label;
  ModePlot plot = {
      .title = title,
      .subtitle = subtitle,
      .pipeline = {output, arguments.options.igc.BitDepth(), arguments.options.gc.BitDepth()},
      .pcc = pcc,
      .gamut = {}};
  if (HasGamut(arguments.kind)) {
    plot.gamut = ReadGamutDiagram(globals.session.panel, list.modes[mode], plot.pipeline);
  }
  const std::string picture = RunGnuplot(PlotScript(plot, arguments.kind, svg));
  WriteOutput(arguments.output, svg ? WithTitle(picture, title + " " + subtitle) : picture);
}

}  // namespace zelctl
