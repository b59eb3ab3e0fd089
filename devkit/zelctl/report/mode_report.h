// SPDX-License-Identifier: Apache-2.0

// What the report shows, gathered from the plug-in.
#pragma once

#include <string>
#include <vector>

#include "devkit/zelctl/host_session.h"
#include "devkit/zelctl/render_options.h"
#include "devkit/zelctl/report/evaluation.h"
#include "devkit/zelctl/report/measured.h"

namespace zelctl {

struct Report {
  std::string panel_file;  // without its folder
  tarn::reference::Panel panel;
  std::vector<ModeEvaluation> modes;
  std::vector<std::string> problems;  // what the host did not get whole
  std::optional<MeasuredSummary> measured;
};

// Judges the modes at `places` of the mode list by themselves, then with one setting
// of `options` more each time. Throws UsageError where the panel's description doesn't
// have one of them.
std::vector<ModeEvaluation> EvaluateModes(const tarn::reference::Panel& panel,
                                          const velaricolor::ColorModeList& list,
                                          const std::vector<size_t>& places,
                                          const RenderOptions& options, HostSession* session);

}  // namespace zelctl
