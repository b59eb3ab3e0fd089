// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {

void AddExportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ExportArguments>();
  auto* command = app.add_subcommand("export", "Write a mode in a format of other programs");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command->add_option("--format", arguments->format, "clf, cube, icc, ti3, csv or json")
      ->required()
      ->type_name("FORMAT");
  command->add_option("-o,--output", arguments->output, "Where it goes")
      ->required()
      ->type_name("FILE");
  FormatOptions* format = &arguments->format_options;
  command->add_option("--size", format->size, "cube: nodes per channel, 2 to 129; default 65")
      ->check(WholeNumber(0, UINT32_MAX))
      ->type_name("N");
  command->add_option("--icc-version", format->icc_version, "icc: 2 or 4; default 4")
      ->type_name("VERSION");
  command->add_flag(
      "--target", format->target,
      "ti3: the colours that the mode asks for, in place of\nthose that the panel shows");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kExportHelp);
  command->callback([&globals, arguments] { RunExport(globals, *arguments); });
}

}  // namespace zelctl
