// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include "devkit/zelctl/color_transform.h"
#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/ltm_file.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {
namespace {

void AddTableSize(CLI::App& command, TableSize* size) {
  const std::string option = "--" + std::string(size->name);
  command
      .add_option(option + "-entries", size->entries,
                  "Entries of the table; default " + std::to_string(size->usual.num_of_entries))
      ->check(WholeNumber(1, size->max_entries))
      ->type_name("N");
  command
      .add_option(option + "-bits", size->bits,
                  "Bit depth of an entry; default " + std::to_string(size->usual.bit_depth))
      ->check(WholeNumber(0, UINT32_MAX))
      ->type_name("N");
}

// Keeps an option's text beside its value.
auto Kept(std::string* text) {
  return [text](const std::string& given) { *text = given; };
}

}  // namespace

void AddRenderOptions(CLI::App& command, RenderOptions* options) {
  AddParsedOption(command, "--color-transform", &options->color_transform, "TRANSFORM",
                  ParseColorTransform, kColorTransformHelp)
      ->each(Kept(&options->color_transform_text));
  AddParsedOption(command, "--ltm", &options->ltm, "FILE", ReadLtmFile, kLtmHelp)
      ->each(Kept(&options->ltm_path));
  AddParsedOption(command, "--dimming", &options->dimming, "F", ParseDimming,
                  "Factor on the whole PCC block")
      ->each(Kept(&options->dimming_text));
  for (TableSize* size : {&options->igc, &options->gc, &options->gamut}) {
    AddTableSize(command, size);
  }
  command.add_flag("--calibration", options->calibration, "Announce the calibration mode first");
}

}  // namespace zelctl
