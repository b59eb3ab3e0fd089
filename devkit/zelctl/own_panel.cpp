// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/own_panel.h"

#include <filesystem>
#include <system_error>

#include "bridge/tarn_intf.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/installation.h"
#include "devkit/zelctl/run_time_libraries.h"

namespace zelctl {

void RequireOwnPanel(const GlobalOptions& globals, const std::string& needed_for) {
  if (globals.panel_given) return;
  const std::string ask = ": say with --panel which description its panel has, for " + needed_for;
  if (globals.session.arg) throw UsageError("the mode parser is given --arg" + ask);
  const auto reference =
      std::filesystem::path(FindInstallation().plugin).replace_filename(tarn::kModeParserLibrary);
  const std::string parser = globals.session.libraries.parser.value_or(
      FindByName(tarn::kModeParserLibrary, globals.session.plugin));
  std::error_code missing;
  if (std::filesystem::equivalent(parser, reference, missing)) return;
  throw UsageError("the mode parser is " + parser + ask);
}

}  // namespace zelctl
