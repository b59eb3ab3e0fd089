// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"

namespace zelctl {

void RunDither(const GlobalOptions& globals) {
  HostSession session(globals.session);
  const auto output =
      session.Get<velaricolor::HwConfigOutputParams>(velaricolor::kVcPbDitherHwConfig);
  ReportBlocks(globals, output);
}

}  // namespace zelctl
