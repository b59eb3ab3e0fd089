// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/render_options.h"

#include <filesystem>
#include <iostream>
#include <utility>

#include "devkit/zelctl/input.h"

namespace zelctl {

double ParseDimming(const std::string& text) {
  const double factor = ParseNumber(text);
  if (factor < 0 || factor > 1) {
    std::cerr << "zelctl: --dimming " << text << " is not from 0 to 1: "
              << (factor < 0 ? "negative light is shown as none" : "it brightens") << '\n';
  }
  return factor;
}

std::string SettingsText(const RenderOptions& options) {
  std::string text;
  for (const auto& [what, value] :
       {std::pair("colour transform", options.color_transform_text),
        {"LTM", std::filesystem::path(options.ltm_path).filename().string()},
        {"dimming", options.dimming_text}}) {
    if (!value.empty()) text += (text.empty() ? "" : ", ") + std::string(what) + " " + value;
  }
  return text;
}

void ApplySizesAndNotifications(const RenderOptions& options, HostSession* session) {
  if (options.calibration) session->Notify(velaricolor::kVcDisplayCalibrationMode);
  for (const TableSize* size : {&options.igc, &options.gc, &options.gamut}) {
    if (!size->entries && !size->bits) continue;
    session->Set(size->property,
                 velaricolor::PostBlendHwConfig{
                     .num_of_entries = size->entries.value_or(size->usual.num_of_entries),
                     .bit_depth = size->BitDepth()});
  }
}

}  // namespace zelctl
