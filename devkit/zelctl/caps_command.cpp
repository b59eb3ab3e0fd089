// SPDX-License-Identifier: Apache-2.0
#include <iostream>
#include <string>
#include <vector>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/text_table.h"

namespace zelctl {

void RunCaps(const GlobalOptions& globals) {
  HostSession session(globals.session);
  const auto flag = [&session](velaricolor::VcProperty id) { return session.Get<bool>(id); };
  const bool needs_update = flag(velaricolor::kVcNeedsUpdate);
  const bool tone_mapping = flag(velaricolor::kVcSupportToneMap);
  const bool dimming = flag(velaricolor::kVcDimmingSupport);
  const auto blocks = session.Get<std::vector<std::string>>(velaricolor::kVcSupportHwAssets);
  if (globals.json) {
    PrintJson({{"needs_update", needs_update},
               {"tone_mapping", tone_mapping},
               {"dimming", dimming},
               {"hw_assets", blocks}},
              std::cout);
    return;
  }
  std::string names;
  for (const auto& block : blocks) names += (names.empty() ? "" : " ") + block;
  const auto shown = [](bool value) { return value ? "yes" : "no"; };
  TextTable table({{"CAPABILITY"}, {"VALUE"}});
  table.Add({"needs update", shown(needs_update)});
  table.Add({"tone mapping", shown(tone_mapping)});
  table.Add({"dimming", shown(dimming)});
  table.Add({"hardware assets", names});
  table.Print(std::cout);
}

}  // namespace zelctl
