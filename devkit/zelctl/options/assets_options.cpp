// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/mode_selection.h"

namespace zelctl {

void AddAssetsCommand(CLI::App& app, const GlobalOptions& globals) {
  auto mode = std::make_shared<std::string>();
  auto* command = app.add_subcommand("assets", "Show the software assets of a mode");
  command->add_option("MODE", *mode, kModeHelp)->required()->type_name("");
  command->footer(kAssetsHelp);
  command->callback([&globals, mode] { RunAssets(globals, *mode); });
}

}  // namespace zelctl
