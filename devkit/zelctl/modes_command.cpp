// SPDX-License-Identifier: Apache-2.0
#include <iostream>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/text_table.h"

namespace zelctl {
namespace {

void PrintModes(const velaricolor::ColorModeList& list) {
  TextTable table({{"MODE", Align::kRight},
                   {"LABEL"},
                   {"GAMUT", Align::kRight},
                   {"GAMMA", Align::kRight},
                   {"INTENT", Align::kRight},
                   {"ASSETS"}});
  for (size_t i = 0; i < list.modes.size(); ++i) {
    const auto& mode = list.modes[i];
    std::string assets;
    for (const auto& asset : mode.hw_assets) assets += (assets.empty() ? "" : " ") + asset;
    table.Add({std::to_string(i), mode.label, std::to_string(mode.gamut),
               std::to_string(mode.gamma), std::to_string(mode.intent), assets});
  }
  table.Print(std::cout);
}

}  // namespace

void RunModes(const GlobalOptions& globals) {
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  if (!globals.json) {
    PrintModes(list);
    return;
  }
  Json modes = Json::array();
  for (size_t i = 0; i < list.modes.size(); ++i) modes.push_back(ModeJson(list, i));
  PrintJson({{"modes", modes}}, std::cout);
}

}  // namespace zelctl
