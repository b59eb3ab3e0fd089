// SPDX-License-Identifier: Apache-2.0

// Parsing; the options themselves are in options/.
#include "devkit/zelctl/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <algorithm>
#include <iostream>
#include <utility>

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

bool HasUnknownOption(const CLI::App& app) {
  const auto words = app.remaining(true);
  return std::any_of(words.begin(), words.end(),
                     [](const std::string& word) { return word.starts_with("-"); });
}

// The complaint in everyday words, where the command line's library has words of its own.
std::string Complaint(const std::string& text) {
  const std::string missing = " missing";
  for (const auto& [theirs, ours] :
       {std::pair(": At Most 1 required but received ", " is given more than once"),
        {" was given a disallowed flag override", " takes no value"}}) {
    const size_t at = text.find(theirs);
    if (at == std::string::npos) continue;
    return (text.starts_with("-") ? "" : "--") + text.substr(0, at) + ours;
  }
  const std::string needs = ": 1 required ";
  const size_t at = text.find(needs);
  if (at == std::string::npos || !text.ends_with(missing)) return text;
  const size_t type = at + needs.size();
  return text.substr(0, at) + " needs " + text.substr(type, text.size() - missing.size() - type);
}

// "--json=no" says neither yes nor no for sure.
void RefuseValuesOfFlags(CLI::App& app) {
  for (auto* option : app.get_options()) {
    if (option->get_expected_max() == 0) option->disable_flag_override();
  }
  for (auto* command : app.get_subcommands({})) RefuseValuesOfFlags(*command);
}

// "--panel= modes" would take the next word for the value.
void RefuseEmptyValues(CLI::App& app, int argc, char** argv) {
  std::vector<CLI::App*> owners = app.get_subcommands({});
  owners.push_back(&app);
  for (int i = 1; i < argc; ++i) {
    const std::string word = argv[i];
    if (!word.starts_with("--") || !word.ends_with("=")) continue;
    const std::string name = word.substr(0, word.size() - 1);
    for (const CLI::App* owner : owners) {
      const auto* option = owner->get_option_no_throw(name);
      if (option == nullptr || option->get_expected_max() == 0) continue;
      throw UsageError(name + " needs " + option->get_type_name());
    }
  }
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
  RefuseValuesOfFlags(app);
  RefuseEmptyValues(app, argc, argv);

  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) throw UsageError("which subcommand? See zelctl --help");
  } catch (const CLI::Success& help) {
    app.exit(help);
  } catch (const CLI::ExtrasError&) {
    throw UsageError(NotExpected(app));
  } catch (const CLI::Error& e) {
    // A mistyped option is why one is missing.
    if (HasUnknownOption(app)) throw UsageError(NotExpected(app));
    throw UsageError(Complaint(e.what()));
  }
  if (!std::cout.flush()) throw std::runtime_error("can't write to standard output");
  if (globals.strict && !globals.problems.empty()) {
    throw ReportedError(std::to_string(globals.problems.size()) +
                        (globals.problems.size() == 1 ? " problem" : " problems"));
  }
  return 0;
}

}  // namespace zelctl
