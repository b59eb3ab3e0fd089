// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/evaluation.h"

#include <algorithm>
#include <cmath>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/report/device_values.h"
#include "devkit/zelctl/report/panel_light.h"

namespace zelctl {
namespace {

using tarn::color::Vec3;
using tarn::color::XyzToLab;
using tarn::reference::Panel;
using tarn::reference::Target;

constexpr double kMaxDrive = 255;
constexpr double kUnseen = 0.05;  // CIEDE2000: a twentieth of what is just noticeable

// The colour of neutral codes and patches under the mode's reference white.
class Judge {
 public:
  Judge(const Panel& panel, const Target& target, const BlockPipeline& pipeline)
      : panel_(panel), content_(panel, target), pipeline_(pipeline) {
    const double white = content_.ReferenceWhite();
    white_ = LightToXyz(panel, content_.PanelLight({white, white, white}));
  }

  const Vec3& White() const { return white_; }
  const ContentColor& Content() const { return content_; }

  Vec3 TargetLight(const ContentCode& code) const {
    return content_.PanelLight(SignalOfCode(code));
  }

  Vec3 Drive(const ContentCode& code, uint32_t bits) const {
    return Quantized(pipeline_.Apply(SignalOfCode(code)), bits);
  }

  Appearance Seen(const Vec3& xyz) const { return {xyz, XyzToLab(xyz, white_)}; }

  PatchResult Result(const Patch& patch) const {
    const Vec3 light = TargetLight(patch.code);
    const Vec3 drive = Drive(patch.code, kOutputBits);
    PatchResult result = {.patch = patch,
                          .target = Seen(LightToXyz(panel_, light)),
                          .shown = Seen(Emitted(panel_, drive))};
    result.reachable = Ciede2000(result.target.lab, Seen(Nearest(light)).lab) < kUnseen;
    for (size_t i = 0; i < 3; ++i) {
      result.drive[i] = static_cast<uint8_t>(std::lround(kMaxDrive * drive[i]));
    }
    result.difference = Ciede2000(result.target.lab, result.shown.lab);
    return result;
  }

  // What is left of light that exceeds the panel's range.
  Vec3 Nearest(Vec3 light) const {
    for (double& component : light) component = std::clamp(component, 0.0, 1.0);
    return LightToXyz(panel_, light);
  }

  double DifferenceAtPanelDepth(const PatchResult& result) const {
    const Vec3 drive = Drive(result.patch.code, panel_.bit_depth);
    return Ciede2000(result.target.lab, Seen(Emitted(panel_, drive)).lab);
  }

  TonePoint Tone(uint8_t code) const {
    const ContentCode neutral = {code, code, code};
    return {code, LightToXyz(panel_, TargetLight(neutral))[1],
            Emitted(panel_, Drive(neutral, kOutputBits))[1]};
  }

  int Spread(uint8_t code) const {
    const Vec3 drive = Drive({code, code, code}, kOutputBits);
    const auto [low, high] = std::minmax_element(drive.begin(), drive.end());
    return static_cast<int>(std::lround(kMaxDrive * (*high - *low)));
  }

 private:
  const Panel& panel_;
  ContentColor content_;
  const BlockPipeline& pipeline_;
  Vec3 white_;
};

std::vector<const PatchResult*> Filtered(const ModeEvaluation& mode, PatchSet set, bool reachable) {
  std::vector<const PatchResult*> results = InSet(mode, set);
  std::erase_if(results,
                [reachable](const PatchResult* result) { return result->reachable != reachable; });
  return results;
}

SetSummary SummaryOf(const Judge& judge, const ModeEvaluation& mode, PatchSet set) {
  const auto shown = [](const PatchResult& result) { return result.difference; };
  const auto reachable = Filtered(mode, set, true);
  return {.set = set,
          .reachable = Summarize(reachable, shown),
          .unreachable = Summarize(Filtered(mode, set, false), shown),
          .at_panel_depth = Summarize(reachable, [&judge](const PatchResult& result) {
            return judge.DifferenceAtPanelDepth(result);
          })};
}

}  // namespace

std::vector<const PatchResult*> InSet(const ModeEvaluation& mode, PatchSet set) {
  std::vector<const PatchResult*> results;
  for (const PatchResult& result : mode.patches) {
    if (result.patch.set == set) results.push_back(&result);
  }
  return results;
}

const PatchResult& FullWhite(const ModeEvaluation& mode) {
  return *std::find_if(mode.patches.begin(), mode.patches.end(),
                       [](const PatchResult& result) { return result.patch.code == kFullWhite; });
}

ModeEvaluation Evaluate(const Panel& panel, const Target& target, const BlockPipeline& pipeline) {
  const Judge judge(panel, target, pipeline);
  ModeEvaluation mode;
  mode.target = target;
  mode.coverage = GamutCoverage(panel.primaries, target.primaries);
  mode.gamut = MakeGamutDiagram(panel, target, pipeline);
  mode.reference_white = judge.Seen(judge.White());
  mode.reference_signal = judge.Content().ReferenceWhite();
  for (const Patch& patch : MakePatches(target, judge.Content())) {
    mode.patches.push_back(judge.Result(patch));
  }
  for (const PatchSet set : kPatchSets) mode.summaries.push_back(SummaryOf(judge, mode, set));
  int spread = 0;
  for (int code = 0; code <= kMaxContentCode; ++code) {
    mode.tone.push_back(judge.Tone(static_cast<uint8_t>(code)));
    spread = std::max(spread, judge.Spread(static_cast<uint8_t>(code)));
  }
  if (target.adaptation || target.primaries.white == panel.primaries.white) {
    mode.neutral_spread = spread;
  }
  return mode;
}

StepResult EvaluateStep(const std::string& label, const Panel& panel, const ModeEvaluation& mode,
                        const BlockPipeline& pipeline) {
  const double white = mode.reference_signal;
  const Vec3 signals[] = {{white, white, white}, {white, 0, 0}, {0, white, 0}, {0, 0, white}};
  StepResult step = {.label = label, .colors = {}, .difference_from_mode = {}};
  for (size_t i = 0; i < step.colors.size(); ++i) {
    const Vec3 content = Quantized(signals[i], kOutputBits);
    const Vec3 xyz = Emitted(panel, Quantized(pipeline.Apply(content), kOutputBits));
    step.colors[i] = {xyz, XyzToLab(xyz, mode.reference_white.xyz)};
    const Appearance& before = mode.steps.empty() ? step.colors[i] : mode.steps[0].colors[i];
    step.difference_from_mode[i] = Ciede2000(before.lab, step.colors[i].lab);
  }
  return step;
}

}  // namespace zelctl
