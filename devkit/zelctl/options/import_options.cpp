// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {
namespace {

// What a panel description takes, in cd/m2.
double ParsePeak(const std::string& text) { return ParseNumber(text, 1, 10000); }
double ParseBlack(const std::string& text) { return ParseNumber(text, 0, 100); }

}  // namespace

void AddImportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ImportArguments>();
  ImportOptions* options = &arguments->options;
  auto* command = app.add_subcommand("import", "Describe a panel by its profile or measurements");
  command->add_option("FILE", arguments->file, "An ICC display profile or a CGATS .ti3")
      ->required()
      ->type_name("");
  command->add_option("-o,--output", arguments->output, "The panel description")
      ->required()
      ->type_name("PANEL.json");
  AddParsedOption(*command, "--peak", &options->peak, "CD/M2", ParsePeak,
                  "Luminance of white at full signal");
  AddParsedOption(*command, "--black", &options->black, "CD/M2", ParseBlack,
                  "Luminance of signal 0");
  command->add_option("--bit-depth", options->bit_depth, "Depth of the panel's signal")
      ->check(WholeNumber(6, 16))
      ->type_name("N");
  command->add_option("--transfer", options->transfer, "linear, srgb or an exponent")
      ->type_name("CURVE");
  command->add_option("--targets", options->targets, kTargetsHelp)
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("NAME,...");
  command->add_option("--name", options->name, "The panel's name; default: the file's own")
      ->type_name("TEXT");
  command->footer(kImportHelp);
  command->callback([&globals, arguments] { RunImport(globals, *arguments); });
}

}  // namespace zelctl
