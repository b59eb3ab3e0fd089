// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/kept_inputs.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/own_panel.h"
#include "devkit/zelctl/render_steps.h"

namespace zelctl {

void RunExport(const GlobalOptions& globals, const ExportArguments& arguments) {
  if (globals.json) throw UsageError("export takes no --json: --format json writes a file");
  const ExportFormat& format = FindExportFormat(arguments.format);
  RefuseOtherFormatsOptions(format, arguments.format_options);
  RefuseOtherFormatsEnding(format, arguments.output);
  KeepInputs(arguments.output, globals, arguments.options);
  if (format.reads_description) RequireOwnPanel(globals, arguments.format);
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const size_t mode = SelectMode(list, arguments.mode);
  ApplySizesAndNotifications(arguments.options, &session);
  for (const RenderStep& setting : ColorSettings(arguments.options, mode)) {
    setting.prepare(&session);
  }

  velaricolor::HwConfigOutputParams output;
  session.Process(velaricolor::kVcModeRenderIntent, list.modes[mode], &output);
  const ExportedFile file = format.write(
      {.panel_path = globals.session.panel,
       .mode = list.modes[mode],
       .settings = SettingsText(arguments.options),
       .blocks = BlocksJson(output, true),
       .pipeline = {output, arguments.options.igc.BitDepth(), arguments.options.gc.BitDepth()}},
      arguments.format_options);
  WriteOutput(arguments.output, file.bytes);
  if (!file.warning.empty()) std::cerr << "zelctl: warning: " << file.warning << '\n';
}

}  // namespace zelctl
