#include <iostream>
#include <memory>
#include <optional>
#include <vector>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/pcc_report.h"
#include "devkit/zelctl/render_options.h"
#include "devkit/zelctl/render_picture.h"
#include "devkit/zelctl/rounds.h"

namespace zelctl {
namespace {

struct RenderArguments {
  std::string mode;
  std::optional<std::string> from;  // unset: start with an empty output record
  bool steps = false;
  uint32_t repeat = 1;
  RenderOptions options;
  std::string image;  // empty: no picture
  std::string image_output;
};

std::vector<Round> PlanRounds(const RenderArguments& arguments,
                              const velaricolor::ColorModeList& list) {
  const size_t mode = SelectMode(list, arguments.mode);
  std::vector<Round> rounds;
  if (arguments.from) {
    const size_t from = SelectMode(list, *arguments.from);
    rounds.push_back({list.modes[from].label, nullptr, from});
  }
  if (arguments.steps) {
    const std::vector<Round> steps = StepByStep(arguments.options, list, mode);
    rounds.insert(rounds.end(), steps.begin(), steps.end());
    return rounds;
  }
  const auto set_all = [settings = ColorSettings(arguments.options, mode)](HostSession* session) {
    for (const Round& setting : settings) setting.prepare(session);
  };
  for (uint32_t i = 1; i <= arguments.repeat; ++i) {
    const std::string count = arguments.repeat > 1 ? " #" + std::to_string(i) : "";
    rounds.push_back({list.modes[mode].label + count, nullptr, mode});
    if (i == 1) rounds.back().prepare = set_all;
  }
  return rounds;
}

void RenderImage(const RenderArguments& arguments, Picture picture,
                 const velaricolor::HwConfigOutputParams& output) {
  const BlockPipeline pipeline(output, arguments.options.igc.BitDepth(),
                               arguments.options.gc.BitDepth());
  SendThrough(pipeline, &picture);
  WriteOutput(arguments.image_output, EncodePng(picture));
}

void RunRender(const GlobalOptions& globals, const RenderArguments& arguments) {
  std::optional<Picture> picture;
  if (!arguments.image.empty()) {
    RequireEnding(arguments.image_output, {".png"});
    picture = ReadPng(arguments.image);
  }
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const std::vector<Round> rounds = PlanRounds(arguments, list);
  ApplySizesAndNotifications(arguments.options, &session);

  velaricolor::HwConfigOutputParams output;
  const std::vector<PccRound> pcc = RunRounds(rounds, list, &session, &output);
  if (picture) RenderImage(arguments, *std::move(picture), output);

  const size_t mode = rounds.back().mode;
  if (globals.json) {
    PrintJson({{"mode", ModeJson(list, mode)},
               {"rounds", PccRoundsJson(pcc)},
               {"blocks", BlocksJson(output)}},
              std::cout);
    return;
  }
  std::cout << "Mode " << ModeTitle(list, mode) << "\n\n";
  ReportBlocks(output, false, std::cout);
  std::cout << '\n';
  PrintPccRounds(pcc, std::cout);
}

}  // namespace

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
                     ->check(CLI::Range(1U, 1000U).description(""))
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
  command->footer(
      "The second table shows the PCC block after each call: per output channel its offset (in\n"
      "1/255), the factors of R, G and B, and the seven higher-order terms t4 to t10.\n"
      "\n"
      "A picture's values are the mode's signal, 8 bits per channel (a file that states a gamma\n"
      "of its own is read as sRGB). Those of the output picture are what the panel is driven with\n"
      "after the last call: shown on the panel itself, with no colour management, they look like\n"
      "the mode. Alpha is kept. At the default table sizes the darkest codes become black, as\n"
      "they do on a device; --igc-bits 16 tells them apart.");
  command->callback([&globals, arguments] { RunRender(globals, *arguments); });
}

}  // namespace zelctl
