// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <iostream>
#include <system_error>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/description.h"
#include "devkit/zelctl/import/import_panel.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/output_file.h"

namespace zelctl {

void RunImport(const GlobalOptions& globals, const ImportArguments& arguments) {
  CheckOptions(arguments.options);
  std::error_code none_there;
  if (std::filesystem::equivalent(arguments.file, arguments.output, none_there)) {
    throw UsageError("--output: " + arguments.output + " is the file to import");
  }
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
