#include <functional>
#include <iostream>
#include <memory>
#include <optional>
#include <vector>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/pcc_report.h"
#include "devkit/zelctl/render_options.h"

namespace zelctl {
namespace {

struct RenderArguments {
  std::string mode;
  std::optional<std::string> from;  // unset: start with an empty output record
  bool steps = false;
  uint32_t repeat = 1;
  RenderOptions options;
};

// One call of the render-intent operation and what is set before it.
struct Round {
  std::string label;
  std::function<void(HostSession*)> prepare;
  size_t mode = 0;
};

// What changes the PCC block, in the order in which the plug-in composes it.
std::vector<Round> ColorSettings(const RenderOptions& options, size_t mode) {
  std::vector<Round> settings;
  if (options.color_transform) {
    settings.push_back({"+ transform",
                        [&options](HostSession* session) {
                          session->Set(velaricolor::kVcColorTransform, *options.color_transform);
                        },
                        mode});
  }
  if (options.ltm) {
    settings.push_back({"+ LTM",
                        [&options](HostSession* session) {
                          session->Set(velaricolor::kVcLtmPccConfig, *options.ltm);
                        },
                        mode});
  }
  if (options.dimming) {
    settings.push_back({"+ dimming",
                        [&options](HostSession* session) {
                          session->Set(velaricolor::kVcDimmingPcc, *options.dimming);
                        },
                        mode});
  }
  return settings;
}

std::vector<Round> PlanRounds(const RenderArguments& arguments,
                              const velaricolor::ColorModeList& list) {
  const auto nothing = [](HostSession*) {};
  const size_t mode = SelectMode(list, arguments.mode);
  std::vector<Round> rounds;
  if (arguments.from) {
    const size_t from = SelectMode(list, *arguments.from);
    rounds.push_back({list.modes[from].label, nothing, from});
  }
  const std::vector<Round> settings = ColorSettings(arguments.options, mode);
  if (arguments.steps) {
    rounds.push_back({list.modes[mode].label, nothing, mode});
    rounds.insert(rounds.end(), settings.begin(), settings.end());
    return rounds;
  }
  const auto set_all = [settings](HostSession* session) {
    for (const Round& setting : settings) setting.prepare(session);
  };
  for (uint32_t i = 1; i <= arguments.repeat; ++i) {
    const std::string count = arguments.repeat > 1 ? " #" + std::to_string(i) : "";
    rounds.push_back(
        {list.modes[mode].label + count, i == 1 ? set_all : std::function(nothing), mode});
  }
  return rounds;
}

void RunRender(const GlobalOptions& globals, const RenderArguments& arguments) {
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const std::vector<Round> rounds = PlanRounds(arguments, list);
  ApplySizesAndNotifications(arguments.options, &session);

  velaricolor::HwConfigOutputParams output;
  std::vector<PccRound> pcc;
  for (const Round& round : rounds) {
    round.prepare(&session);
    session.Process(velaricolor::kVcModeRenderIntent, list.modes[round.mode], &output);
    pcc.push_back({round.label, CopyPcc(output)});
  }

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
  command->footer(
      "The second table shows the PCC block after each call: per output channel its offset (in\n"
      "1/255), the factors of R, G and B, and the seven higher-order terms t4 to t10.");
  command->callback([&globals, arguments] { RunRender(globals, *arguments); });
}

}  // namespace zelctl
