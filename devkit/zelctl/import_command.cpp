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
  const ImportedPanel imported = ImportPanel(
      arguments.file, ReadWhole(arguments.file, "file"), arguments.options);
  WriteOutput(arguments.output, DescriptionText(imported.description));
  if (globals.json) {
    PrintJson({{"output", arguments.output},
               {"source", imported.description["source"]},
               {"notes", imported.notes}},
              std::cout);
    return;
  }
  for (const auto& line : imported.description["source"]) {
    std::cout << line.get<std::string>() << '\n';
  }
  for (const std::string& note : imported.notes) std::cout << "note: " << note << '\n';
}

}  // namespace zelctl
