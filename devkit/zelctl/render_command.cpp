// SPDX-License-Identifier: Apache-2.0
#include <algorithm>
#include <iostream>
#include <optional>
#include <thread>
#include <vector>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/kept_inputs.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/output_file.h"
#include "devkit/zelctl/pcc_report.h"
#include "devkit/zelctl/picture/png_file.h"
#include "devkit/zelctl/picture/render_picture.h"
#include "devkit/zelctl/render_options.h"
#include "devkit/zelctl/render_steps.h"

namespace zelctl {
namespace {

std::vector<RenderStep> PlanSteps(const RenderArguments& arguments,
                                  const velaricolor::ColorModeList& list) {
  const size_t mode = SelectMode(list, arguments.mode);
  std::vector<RenderStep> steps;
  if (arguments.from) {
    const size_t from = SelectMode(list, *arguments.from);
    steps.push_back({list.modes[from].label, nullptr, from});
  }
  if (arguments.steps) {
    const std::vector<RenderStep> settings = StepByStep(arguments.options, list, mode);
    steps.insert(steps.end(), settings.begin(), settings.end());
    return steps;
  }
  const auto set_all = [settings = ColorSettings(arguments.options, mode)](HostSession* session) {
    for (const RenderStep& setting : settings) setting.prepare(session);
  };
  for (uint32_t i = 1; i <= arguments.repeat; ++i) {
    const std::string count = arguments.repeat > 1 ? " #" + std::to_string(i) : "";
    steps.push_back({list.modes[mode].label + count, nullptr, mode});
    if (i == 1) steps.back().prepare = set_all;
  }
  return steps;
}

void RenderImage(const RenderArguments& arguments, Picture picture,
                 const velaricolor::HwConfigOutputParams& output) {
  const BlockPipeline pipeline(output, arguments.options.igc.BitDepth(),
                               arguments.options.gc.BitDepth());
  Progress progress("picture");
  const unsigned threads =
      arguments.threads.value_or(std::max(std::thread::hardware_concurrency(), 1U));
  SendThrough(pipeline, threads, &picture, &progress);
  progress.Show("writing");
  WriteOutput(arguments.image_output,
              EncodePng(&picture, arguments.small ? PngSize::kSmall : PngSize::kQuick));
}

}  // namespace

void RunRender(const GlobalOptions& globals, const RenderArguments& arguments) {
  std::optional<Picture> picture;
  if (arguments.image) {
    RequireEnding(arguments.image_output, {".png"});
    KeepInputs(arguments.image_output, globals, arguments.options, *arguments.image);
    picture = ReadPng(*arguments.image);
  }
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const std::vector<RenderStep> steps = PlanSteps(arguments, list);
  ApplySizesAndNotifications(arguments.options, &session);

  velaricolor::HwConfigOutputParams output;
  const std::vector<PccStep> pcc = RunSteps(steps, list, &session, &output);
  if (picture) RenderImage(arguments, *std::move(picture), output);

  const size_t mode = steps.back().mode;
  if (globals.json) {
    PrintJson({{"mode", ModeJson(list, mode)},
               {"rounds", PccStepsJson(pcc)},
               {"blocks", BlocksJson(output, globals.tables)},
               {"problems", globals.problems}},
              std::cout);
    return;
  }
  std::cout << "Mode " << ModeTitle(list, mode) << "\n\n";
  ReportBlocks(globals, output);
  std::cout << '\n';
  PrintPccSteps(pcc, std::cout);
}

}  // namespace zelctl
