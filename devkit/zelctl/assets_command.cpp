// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/mode_selection.h"

namespace zelctl {

void RunAssets(const GlobalOptions& globals, const std::string& mode_text) {
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const auto& mode = list.modes[SelectMode(list, mode_text)];
  velaricolor::HwConfigOutputParams output;
  session.Process(velaricolor::kVcModeSwAssets, mode, &output);
  ReportBlocks(globals, output);
}

}  // namespace zelctl
