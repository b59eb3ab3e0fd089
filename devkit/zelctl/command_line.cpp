// SPDX-License-Identifier: Apache-2.0

// Parsing; the options themselves are in options/.
#include "devkit/zelctl/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/installation.h"
#include "devkit/zelctl/options/command_options.h"
#include "devkit/zelctl/suggestion.h"

namespace zelctl {
namespace {

// A subcommand without arguments.
void AddPlainCommand(CLI::App& app, const GlobalOptions& globals, const char* name,
                     const char* help, const char* footer, void (*run)(const GlobalOptions&)) {
  auto* command = app.add_subcommand(name, help);
  command->footer(footer);
  command->callback([&globals, run] { run(globals); });
}

// The words that nothing takes, and what could have stood there.
std::string NotExpected(const CLI::App& app) {
  KnownWords known;
  for (const auto* one : app.get_subcommands([](const auto*) { return true; })) {
    known.commands.push_back(one->get_name());
  }
  std::vector<const CLI::App*> owners = {&app};
  for (const auto* command : app.get_subcommands()) owners.push_back(command);
  known.command_given = owners.size() > 1;
  for (const CLI::App* owner : owners) {
    for (const auto* option : owner->get_options()) {
      for (const auto& name : option->get_lnames()) known.options.push_back("--" + name);
    }
  }
  return UnknownWord(app.remaining(true), known);
}

}  // namespace

int RunCommandLine(int argc, char** argv) {
  const Installation installation = FindInstallation();
  GlobalOptions globals;
  globals.session.plugin = installation.plugin;
  globals.session.panel = installation.panel;

  CLI::App app("Loads the zeltarn display colour-management plug-in and drives it as a host does.",
               "zelctl");
  app.footer(kExamples);
  app.set_version_flag("--version", "zelctl " ZELTARN_VERSION, "Print the version and exit");
  app.fallthrough();             // global options may follow the subcommand
  app.require_subcommand(0, 1);  // one document, one status
  AddGlobalOptions(app, &globals);
  AddPlainCommand(app, globals, "modes", "List the colour modes of the panel", kModesHelp,
                  RunModes);
  AddRenderCommand(app, globals);
  AddPlotCommand(app, globals);
  AddExportCommand(app, globals);
  AddReportCommand(app, globals);
  AddAssetsCommand(app, globals);
  AddPlainCommand(app, globals, "dither", "Show the global dither configuration", kDitherHelp,
                  RunDither);
  AddPlainCommand(app, globals, "caps", "Show what the plug-in supports", kCapsHelp, RunCaps);
  AddValidateCommand(app, globals);
  AddImportCommand(app, globals);

  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) throw UsageError("which subcommand? See zelctl --help");
  } catch (const CLI::Success& help) {
    app.exit(help);
  } catch (const CLI::ExtrasError&) {
    throw UsageError(NotExpected(app));
  } catch (const CLI::Error& e) {
    throw UsageError(e.what());
  }
  if (!std::cout.flush()) throw std::runtime_error("can't write to standard output");
  if (globals.strict && !globals.problems.empty()) {
    throw ReportedError(std::to_string(globals.problems.size()) +
                        (globals.problems.size() == 1 ? " problem" : " problems"));
  }
  return 0;
}

}  // namespace zelctl
