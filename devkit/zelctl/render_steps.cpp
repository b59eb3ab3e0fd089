// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/render_steps.h"

#include <optional>

namespace zelctl {
namespace {

template <typename T>
void AddSetting(const char* label, velaricolor::VcProperty property, const std::optional<T>& value,
                size_t mode, std::vector<RenderStep>* steps) {
  if (!value) return;
  steps->push_back(
      {label, [property, &value](HostSession* session) { session->Set(property, *value); }, mode});
}

}  // namespace

std::vector<RenderStep> ColorSettings(const RenderOptions& options, size_t mode) {
  std::vector<RenderStep> steps;
  AddSetting("+ transform", velaricolor::kVcColorTransform, options.color_transform, mode, &steps);
  AddSetting("+ LTM", velaricolor::kVcLtmPccConfig, options.ltm, mode, &steps);
  AddSetting("+ dimming", velaricolor::kVcDimmingPcc, options.dimming, mode, &steps);
  return steps;
}

std::vector<RenderStep> StepByStep(const RenderOptions& options,
                                   const velaricolor::ColorModeList& list, size_t mode) {
  std::vector<RenderStep> steps = ColorSettings(options, mode);
  steps.insert(steps.begin(), {list.modes[mode].label, nullptr, mode});
  return steps;
}

std::vector<PccStep> RunSteps(const std::vector<RenderStep>& steps,
                              const velaricolor::ColorModeList& list, HostSession* session,
                              velaricolor::HwConfigOutputParams* output) {
  std::vector<PccStep> pcc;
  for (const RenderStep& step : steps) {
    if (step.prepare) step.prepare(session);
    session->Process(velaricolor::kVcModeRenderIntent, list.modes[step.mode], output);
    pcc.push_back({step.label, CopyPcc(*output)});
  }
  return pcc;
}

}  // namespace zelctl
