// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/patches.h"

#include <algorithm>
#include <cmath>

#include "devkit/zelctl/report/color_checker.h"

namespace zelctl {
namespace {

using tarn::color::Inverse;
using tarn::color::Multiply;
using tarn::color::Vec3;

ContentCode Code(const Vec3& signal) {
  ContentCode code;
  for (size_t i = 0; i < 3; ++i) {
    code[i] = static_cast<uint8_t>(std::lround(kMaxContentCode * signal[i]));
  }
  return code;
}

void AddChart(const tarn::reference::Target& target, const ContentColor& content,
              std::vector<Patch>* patches) {
  const auto& white = target.primaries.white;
  const auto adapted =
      Multiply(BradfordAdaptation(tarn::color::kSrgb.white, white), RgbToXyz(tarn::color::kSrgb));
  const auto to_content = Multiply(Inverse(RgbToXyz(target.primaries)), adapted);
  constexpr double kRounding = 1e-9;
  for (const ChartColor& color : kColorChecker) {
    Vec3 srgb = SignalOfCode(color.srgb);
    for (double& component : srgb) component = tarn::color::SrgbToLight(component);
    const Vec3 light = Multiply(to_content, srgb);
    const bool clipped = *std::min_element(light.begin(), light.end()) < -kRounding;
    patches->push_back({color.name, PatchSet::kColorChecker, Code(content.Encode(light)), clipped});
  }
}

void AddGreys(std::vector<Patch>* patches) {
  constexpr int kSteps = 32;
  for (int i = 0; i <= kSteps; ++i) {
    const double signal = static_cast<double>(i) / kSteps;
    const ContentCode code = Code({signal, signal, signal});
    patches->push_back({"grey " + std::to_string(code[0]), PatchSet::kGreys, code});
  }
}

}  // namespace

Vec3 SignalOfCode(const ContentCode& code) {
  return {code[0] / kMaxContentCode, code[1] / kMaxContentCode, code[2] / kMaxContentCode};
}

std::vector<Patch> MakePatches(const tarn::reference::Target& target, const ContentColor& content) {
  constexpr struct {
    const char* name;
    Vec3 rgb;
  } kCorners[] = {{"red", {1, 0, 0}},  {"green", {0, 1, 0}},   {"blue", {0, 0, 1}},
                  {"cyan", {0, 1, 1}}, {"magenta", {1, 0, 1}}, {"yellow", {1, 1, 0}}};
  std::vector<Patch> patches;
  AddChart(target, content, &patches);
  AddGreys(&patches);
  const double white = content.ReferenceWhite();
  for (const auto& [name, rgb] : kCorners) {
    const Vec3 signal = {white * rgb[0], white * rgb[1], white * rgb[2]};
    patches.push_back({name, PatchSet::kPrimaries, Code(signal)});
  }
  patches.push_back({"white", PatchSet::kWhite, Code({white, white, white})});
  return patches;
}

}  // namespace zelctl
