// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/mode_selection.h"

namespace zelctl {

void AddReportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ReportArguments>();
  auto* command = app.add_subcommand("report", "Judge the colours of modes, on a page of HTML");
  command->add_option("MODE", arguments->modes, std::string(kModeHelp) + "; default: all modes")
      ->type_name("");
  command->add_option("-o,--output", arguments->output, "The page")->type_name("FILE.html");
  command
      ->add_option("--patches", arguments->patches,
                   "Write the patches of the one MODE, to be measured")
      ->type_name("FILE.ti1");
  command
      ->add_option("--measured", arguments->measured,
                   "Measurements of the one MODE's patches, to compare with")
      ->type_name("FILE.ti3");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kReportHelp);
  command->callback([&globals, arguments] { RunReport(globals, *arguments); });
}

}  // namespace zelctl
