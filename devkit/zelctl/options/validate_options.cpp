// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {

void AddValidateCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ValidateArguments>();
  auto* command = app.add_subcommand("validate", "Check a mode parser or an algorithm library");
  command
      ->add_option("--timeout", arguments->timeout,
                   "Seconds that a library may take for a call; default 10")
      ->check(WholeNumber(1, 3600))
      ->type_name("SECONDS");
  command->footer(kValidateHelp);
  command->callback([&globals, arguments] { RunValidate(globals, *arguments); });
}

}  // namespace zelctl
