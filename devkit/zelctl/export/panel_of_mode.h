// SPDX-License-Identifier: Apache-2.0

// The description that a mode comes from, for what no block states.
#pragma once

#include "devkit/reference/panel/panel.h"
#include "devkit/zelctl/export/export_format.h"

namespace zelctl {

struct DescribedMode {
  tarn::reference::Panel panel;
  tarn::reference::Target target;
};

// Throws UsageError where the panel's file is no description, or has no such mode.
DescribedMode ReadDescription(const ExportedMode& mode);

}  // namespace zelctl
