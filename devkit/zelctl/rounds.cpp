// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/rounds.h"

#include <optional>

namespace zelctl {
namespace {

template <typename T>
void AddSetting(const char* label, velaricolor::VcProperty property, const std::optional<T>& value,
                size_t mode, std::vector<Round>* rounds) {
  if (!value) return;
  rounds->push_back(
      {label, [property, &value](HostSession* session) { session->Set(property, *value); }, mode});
}

}  // namespace

std::vector<Round> ColorSettings(const RenderOptions& options, size_t mode) {
  std::vector<Round> rounds;
  AddSetting("+ transform", velaricolor::kVcColorTransform, options.color_transform, mode, &rounds);
  AddSetting("+ LTM", velaricolor::kVcLtmPccConfig, options.ltm, mode, &rounds);
  AddSetting("+ dimming", velaricolor::kVcDimmingPcc, options.dimming, mode, &rounds);
  return rounds;
}

std::vector<Round> StepByStep(const RenderOptions& options, const velaricolor::ColorModeList& list,
                              size_t mode) {
  std::vector<Round> rounds = ColorSettings(options, mode);
  rounds.insert(rounds.begin(), {list.modes[mode].label, nullptr, mode});
  return rounds;
}

std::vector<PccRound> RunRounds(const std::vector<Round>& rounds,
                                const velaricolor::ColorModeList& list, HostSession* session,
                                velaricolor::HwConfigOutputParams* output) {
  std::vector<PccRound> pcc;
  for (const Round& round : rounds) {
    if (round.prepare) round.prepare(session);
    session->Process(velaricolor::kVcModeRenderIntent, list.modes[round.mode], output);
    pcc.push_back({round.label, CopyPcc(*output)});
  }
  return pcc;
}

}  // namespace zelctl
