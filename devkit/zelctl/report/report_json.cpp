// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/report_json.h"

#include "devkit/zelctl/report/target_text.h"

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Primaries;

constexpr int kReportFormat = 1;

Json XyJson(const Chromaticity& xy) { return {xy.x, xy.y}; }

Json PrimariesJson(const Primaries& p) {
  return {{"red", XyJson(p.red)},
          {"green", XyJson(p.green)},
          {"blue", XyJson(p.blue)},
          {"white", XyJson(p.white)}};
}

Json AppearanceJson(const Appearance& seen) {
  return {{"xyz", seen.xyz}, {"lab", {seen.lab.l, seen.lab.a, seen.lab.b}}};
}

Json DifferencesJson(const Differences& differences) {
  return {{"count", differences.count}, {"mean", differences.mean}, {"max", differences.max}};
}

Json PatchJson(const PatchResult& result) {
  Json json = {{"name", result.patch.name},
               {"content", result.patch.code},
               {"clipped_by_content", result.patch.clipped},
               {"in_gamut", result.reachable},
               {"drive", result.drive},
               {"target", AppearanceJson(result.target)},
               {"shown", AppearanceJson(result.shown)},
               {"ciede2000", result.difference}};
  if (result.measured) json["measured"] = AppearanceJson(*result.measured);
  return json;
}

Json SetsJson(const ModeEvaluation& mode) {
  Json sets;
  for (const SetSummary& summary : mode.summaries) {
    Json patches = Json::array();
    for (const PatchResult* result : InSet(mode, summary.set)) {
      patches.push_back(PatchJson(*result));
    }
    sets[SetKey(summary.set)] = {
        {"in_gamut", DifferencesJson(summary.reachable)},
        {"out_of_gamut", DifferencesJson(summary.unreachable)},
        {"in_gamut_at_panel_depth", DifferencesJson(summary.at_panel_depth)},
        {"patches", std::move(patches)}};
  }
  return sets;
}

Json StepsJson(const ModeEvaluation& mode) {
  constexpr std::array<const char*, 4> kColors = {"white", "red", "green", "blue"};
  Json steps = Json::array();
  for (const StepResult& step : mode.steps) {
    Json entry = {{"label", step.label}};
    for (size_t i = 0; i < kColors.size(); ++i) {
      entry[kColors[i]] = AppearanceJson(step.colors[i]);
      entry[kColors[i]]["ciede2000_from_mode"] = step.difference_from_mode[i];
    }
    steps.push_back(std::move(entry));
  }
  return steps;
}

Json ModeJson(const tarn::reference::Panel& panel, const ModeEvaluation& mode) {
  Json tone = Json::array();
  for (const TonePoint& point : mode.tone) tone.push_back({point.code, point.target, point.shown});
  Json json = {{"index", mode.index},
               {"label", mode.label},
               {"ids", mode.ids},
               {"target",
                {{"text", TargetText(panel, mode.target)},
                 {"primaries", PrimariesJson(mode.target.primaries)},
                 {"adaptation", mode.target.adaptation},
                 {"reference_white_signal", mode.reference_signal},
                 {"reference_white_xyz", mode.reference_white.xyz}}},
               {"coverage", {{"xy", mode.coverage.xy}, {"uv", mode.coverage.uniform}}},
               {"neutral_spread", nullptr},
               {"sets", SetsJson(mode)},
               {"steps", StepsJson(mode)},
               {"tone_curve", std::move(tone)}};
  if (mode.neutral_spread) json["neutral_spread"] = *mode.neutral_spread;
  return json;
}

Json MeasuredJson(const MeasuredSummary& measured) {
  Json sets;
  for (const MeasuredSet& set : measured.sets) {
    sets[SetKey(set.set)] = {
        {"from_target", DifferencesJson(set.from_target)},
        {"from_prediction", DifferencesJson(set.from_prediction)},
        {"from_target_equal_white", DifferencesJson(set.from_target_scaled)},
        {"from_prediction_equal_white", DifferencesJson(set.from_prediction_scaled)}};
  }
  return {{"file", measured.file},
          {"found", measured.found},
          {"missing", measured.missing},
          {"absolute", measured.absolute},
          {"white_predicted", measured.predicted_white},
          {"white_measured", measured.measured_white},
          {"sets", std::move(sets)}};
}

}  // namespace

const char* SetKey(PatchSet set) {
  switch (set) {
    case PatchSet::kColorChecker:
      return "color_checker";
    case PatchSet::kGreys:
      return "greys";
    case PatchSet::kPrimaries:
      return "primaries";
    case PatchSet::kWhite:
      break;
  }
  return "white";
}

Json ReportJson(const Report& report) {
  const tarn::reference::Panel& panel = report.panel;
  Json modes = Json::array();
  for (const ModeEvaluation& mode : report.modes) modes.push_back(ModeJson(panel, mode));
  Json json = {{"format", kReportFormat},
               {"panel",
                {{"name", panel.name},
                 {"file", report.panel_file},
                 {"primaries", PrimariesJson(panel.primaries)},
                 {"peak", panel.luminance.peak},
                 {"black", panel.luminance.black},
                 {"bit_depth", panel.bit_depth}}},
               {"output_bits", kOutputBits},
               {"modes", std::move(modes)},
               {"measured", nullptr},
               {"problems", report.problems}};
  if (report.measured) json["measured"] = MeasuredJson(*report.measured);
  return json;
}

}  // namespace zelctl
