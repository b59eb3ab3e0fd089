// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/options/command_options.h"

#include <memory>

#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/options/option_kinds.h"

namespace zelctl {

void AddRenderCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<RenderArguments>();
  auto* command = app.add_subcommand("render", "Switch to a mode and show its hardware blocks");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command
      ->add_option("--from", arguments->from,
                   "Render this mode first, without settings, into the same\noutput record")
      ->type_name("MODE");
  AddRenderOptions(*command, &arguments->options);
  auto* repeat = command
                     ->add_option("--repeat", arguments->repeat,
                                  "Pass the same output record N times, as a host does")
                     ->check(WholeNumber(1, 1000))
                     ->type_name("N");
  command
      ->add_flag("--steps", arguments->steps,
                 "Render after each of colour transform, LTM and dimming")
      ->excludes(repeat);
  auto* image = command
                    ->add_option("--image", arguments->image,
                                 "Send this PNG picture through IGC, gamut, PCC and GC")
                    ->type_name("IN.png");
  auto* image_output =
      command->add_option("-o,--output", arguments->image_output, "Where that picture goes")
          ->type_name("OUT.png");
  image->needs(image_output);
  image_output->needs(image);
  command->add_flag("--small", arguments->small, "Take the time to make OUT.png small")
      ->needs(image);
  command
      ->add_option("--threads", arguments->threads, "For the picture; default: one per processor")
      ->needs(image)
      ->check(WholeNumber(1, 1024))
      ->type_name("N");
  command->footer(kRenderHelp);
  command->callback([&globals, arguments] { RunRender(globals, *arguments); });
}

}  // namespace zelctl
