// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/export/panel_of_mode.h"

#include "devkit/reference/panel/panel_error.h"
#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/mode_selection.h"

namespace zelctl {

DescribedMode ReadDescription(const ExportedMode& mode) {
  try {
    tarn::reference::Panel panel = tarn::reference::ReadPanel(mode.panel_path);
    for (const auto& described : panel.modes) {
      if (ModeIds(described.id) != ModeIds(mode.mode)) continue;
      tarn::reference::Target target = described.target;
      return {std::move(panel), std::move(target)};
    }
  } catch (const tarn::reference::PanelError& e) {
    throw UsageError(e.what());
  }
  throw UsageError(mode.panel_path + " has no mode " + ModeIds(mode.mode));
}

}  // namespace zelctl
