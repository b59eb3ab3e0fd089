// SPDX-License-Identifier: Apache-2.0

// The subcommands. Each but the last two drives the plug-in, prints what it answers, and
// throws UsageError or CallError.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/export/export_format.h"
#include "devkit/zelctl/host_session.h"
#include "devkit/zelctl/import/panel_facts.h"
#include "devkit/zelctl/plot/mode_plot.h"
#include "devkit/zelctl/render_options.h"

namespace zelctl {

struct GlobalOptions {
  SessionOptions session;
  bool panel_given = false;  // session.panel is the user's
  bool json = false;
  bool tables = false;                // in JSON: all entries
  bool strict = false;                // a problem makes the run fail
  std::vector<std::string> problems;  // what a host would not get whole, so far
};

struct RenderArguments {
  std::string mode;
  std::optional<std::string> from;  // unset: start with an empty output record
  bool steps = false;
  uint32_t repeat = 1;
  RenderOptions options;
  std::optional<std::string> image;  // a picture to send through the blocks
  std::string image_output;
  bool small = false;               // at the cost of time
  std::optional<uint32_t> threads;  // unset: as many as there are processors
};

struct PlotArguments {
  std::string mode;
  std::string output;
  PlotKind kind = PlotKind::kAll;
  RenderOptions options;
};

struct ExportArguments {
  std::string mode;
  std::string format;
  std::string output;
  FormatOptions format_options;
  RenderOptions options;
};

// At least one of `output`, `patches` and --json; without modes all of them.
struct ReportArguments {
  std::vector<std::string> modes;
  std::optional<std::string> output;
  std::optional<std::string> patches;
  std::optional<std::string> measured;
  RenderOptions options;
};

struct ValidateArguments {
  uint32_t timeout = 10;  // seconds for each call
};

struct ImportArguments {
  std::string file;
  std::string output;
  ImportOptions options;
};

void RunModes(const GlobalOptions& globals);
void RunRender(const GlobalOptions& globals, const RenderArguments& arguments);
void RunPlot(const GlobalOptions& globals, const PlotArguments& arguments);
void RunExport(const GlobalOptions& globals, const ExportArguments& arguments);
void RunReport(const GlobalOptions& globals, const ReportArguments& arguments);
void RunAssets(const GlobalOptions& globals, const std::string& mode_text);
void RunDither(const GlobalOptions& globals);
void RunCaps(const GlobalOptions& globals);

// Without the plug-in.
void RunImport(const GlobalOptions& globals, const ImportArguments& arguments);

// Without the plug-in. Throws std::runtime_error where a library breaks a rule.
void RunValidate(const GlobalOptions& globals, const ValidateArguments& arguments);

}  // namespace zelctl
