// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <map>
#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {
namespace {

PlotKind ParsePlotKind(const std::string& text) {
  static const std::map<std::string, PlotKind> kinds = {{"all", PlotKind::kAll},
                                                        {"gamut", PlotKind::kGamut},
                                                        {"curves", PlotKind::kCurves},
                                                        {"pcc", PlotKind::kPcc}};
  const auto found = kinds.find(text);
  if (found == kinds.end()) throw UsageError("expected all, gamut, curves or pcc");
  return found->second;
}

}  // namespace

void AddPlotCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<PlotArguments>();
  auto* command = app.add_subcommand("plot", "Draw a mode: gamut, curves, effect of the PCC block");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command->add_option("-o,--output", arguments->output, "The picture; its ending says which kind")
      ->required()
      ->type_name("FILE.svg|FILE.png");
  AddParsedOption(*command, "--what", &arguments->kind, "PART", ParsePlotKind,
                  "all, gamut, curves or pcc; default: all");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kPlotHelp);
  command->callback([&globals, arguments] { RunPlot(globals, *arguments); });
}

}  // namespace zelctl
