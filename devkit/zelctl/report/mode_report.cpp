// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/mode_report.h"

#include <algorithm>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/render_steps.h"

namespace zelctl {
namespace {

using tarn::reference::Panel;
using tarn::reference::Target;
using velaricolor::ColorModeList;

const Target& TargetOf(const Panel& panel, const velaricolor::ColorMode& id) {
  for (const auto& mode : panel.modes) {
    if (mode.id.gamut == id.gamut && mode.id.gamma == id.gamma && mode.id.intent == id.intent) {
      return mode.target;
    }
  }
  throw UsageError("the panel's description has no mode " + ModeIds(id) + " ('" + id.label +
                   "'): is it the one of this plug-in's panel?");
}

BlockPipeline Render(const ColorModeList& list, size_t place, const RenderOptions& options,
                     HostSession* session) {
  velaricolor::HwConfigOutputParams output;
  session->Process(velaricolor::kVcModeRenderIntent, list.modes[place], &output);
  return {output, options.igc.BitDepth(), options.gc.BitDepth()};
}

}  // namespace

std::vector<ModeEvaluation> EvaluateModes(const Panel& panel, const ColorModeList& list,
                                          const std::vector<size_t>& places,
                                          const RenderOptions& options, HostSession* session) {
  std::vector<ModeEvaluation> modes;
  for (const size_t place : places) {
    const Target& target = TargetOf(panel, list.modes[place]);
    const BlockPipeline pipeline = Render(list, place, options, session);
    ModeEvaluation mode = Evaluate(panel, target, pipeline);
    mode.index = place;
    mode.label = list.modes[place].label;
    mode.ids = ModeIds(list.modes[place]);
    mode.steps.push_back(EvaluateStep(mode.label, panel, mode, pipeline));
    modes.push_back(std::move(mode));
  }
  // A setting stays, so that each is made once, for all modes.
  for (const RenderStep& setting : ColorSettings(options, 0)) {
    setting.prepare(session);
    for (ModeEvaluation& mode : modes) {
      const BlockPipeline pipeline = Render(list, mode.index, options, session);
      mode.steps.push_back(EvaluateStep(setting.label, panel, mode, pipeline));
    }
  }
  return modes;
}

}  // namespace zelctl
