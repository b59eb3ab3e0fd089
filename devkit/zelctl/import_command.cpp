// SPDX-License-Identifier: Apache-2.0
#include <iostream>
#include <utility>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/description.h"
#include "devkit/zelctl/import/import_panel.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/kept_inputs.h"
#include "devkit/zelctl/output_file.h"

namespace zelctl {

namespace {

void RefuseOptionsOfThePlugin(const GlobalOptions& globals) {
  const SessionOptions& session = globals.session;
  for (const auto& [given, name] : {std::pair(globals.panel_given, "--panel"),
                                    std::pair(session.libraries.parser.has_value(), "--parser"),
                                    std::pair(session.libraries.algo.has_value(), "--algo"),
                                    std::pair(session.arg.has_value(), "--arg")}) {
    if (given) throw UsageError(std::string("import takes no ") + name + ": it calls no library");
  }
}

}  // namespace

void RunImport(const GlobalOptions& globals, const ImportArguments& arguments) {
  CheckOptions(arguments.options);
  RefuseOptionsOfThePlugin(globals);
  RefuseInput(arguments.output, arguments.file);
  const Json description =
      ImportPanel(arguments.file, ReadWhole(arguments.file, "file"), arguments.options);
  WriteOutput(arguments.output, DescriptionText(description));
  if (globals.json) {
    PrintJson({{"output", arguments.output}, {"source", description["source"]}}, std::cout);
    return;
  }
  for (const auto& line : description["source"]) {
    std::cout << line.get<std::string>() << '\n';
  }
}

}  // namespace zelctl
