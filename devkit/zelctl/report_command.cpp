// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <filesystem>
#include <iostream>
#include <numeric>
#include <set>

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/kept_inputs.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/own_panel.h"
#include "devkit/zelctl/report/mode_report.h"
#include "devkit/zelctl/report/page.h"
#include "devkit/zelctl/report/patches_file.h"
#include "devkit/zelctl/report/report_json.h"

namespace zelctl {
namespace {

tarn::reference::Panel ReadDescription(const std::string& path) {
  try {
    return tarn::reference::ReadPanel(path);
  } catch (const tarn::reference::PanelError& e) {
    throw UsageError(e.what());
  }
}

void CheckArguments(const GlobalOptions& globals, const ReportArguments& arguments) {
  if (!arguments.output && !arguments.patches && !globals.json) {
    throw UsageError("report: where to? Give -o FILE.html, --json or --patches FILE.ti1");
  }
  if (arguments.output) RequireEnding(*arguments.output, {".html", ".htm"});
  if (arguments.patches) RequireEnding(*arguments.patches, {".ti1"}, "--patches");
  if (arguments.measured) RequireReadable(*arguments.measured, "measurements");
  for (const auto& output : {arguments.output, arguments.patches}) {
    if (output) KeepInputs(*output, globals, arguments.options, arguments.measured.value_or(""));
  }
  if (arguments.modes.size() == 1) return;
  for (const auto& [given, name] : {std::pair(arguments.patches.has_value(), "--patches"),
                                    std::pair(arguments.measured.has_value(), "--measured")}) {
    if (given) throw UsageError(std::string(name) + " takes one MODE: each has patches of its own");
  }
}

std::vector<size_t> Places(const velaricolor::ColorModeList& list,
                           const std::vector<std::string>& modes) {
  std::vector<size_t> places(modes.empty() ? list.modes.size() : modes.size());
  if (modes.empty()) {
    std::iota(places.begin(), places.end(), size_t{0});
  } else {
    std::transform(modes.begin(), modes.end(), places.begin(),
                   [&](const std::string& mode) { return SelectMode(list, mode); });
    std::set<size_t> seen;
    for (const size_t place : places) {
      if (!seen.insert(place).second) {
        throw UsageError("mode " + ModeTitle(list, place) + " is named twice");
      }
    }
  }
  return places;
}

}  // namespace

void RunReport(const GlobalOptions& globals, const ReportArguments& arguments) {
  CheckArguments(globals, arguments);
  RequireOwnPanel(globals, "targets and primaries");
  HostSession session(globals.session);
  Report report = {.panel_file = std::filesystem::path(globals.session.panel).filename(),
                   .panel = ReadDescription(globals.session.panel)};
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  ApplySizesAndNotifications(arguments.options, &session);
  report.modes =
      EvaluateModes(report.panel, list, Places(list, arguments.modes), arguments.options, &session);
  if (arguments.measured) {
    report.measured = ReadMeasurements(*arguments.measured, &report.modes.front());
  }
  report.problems = globals.problems;
  if (arguments.patches) WriteOutput(*arguments.patches, PatchesFile(report.modes.front()));
  if (arguments.output) WriteOutput(*arguments.output, ReportPage(report));
  if (globals.json) PrintJson(ReportJson(report), std::cout);
}

}  // namespace zelctl
