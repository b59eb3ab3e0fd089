// SPDX-License-Identifier: Apache-2.0

// The one file that knows the command-line parser, which takes long to compile.
#include "devkit/zelctl/command_line.h"

#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <iostream>
#include <map>
#include <memory>

#include "devkit/zelctl/color_transform.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/help_texts.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/installation.h"
#include "devkit/zelctl/ltm_file.h"
#include "devkit/zelctl/mode_selection.h"
#include "devkit/zelctl/suggestion.h"

namespace zelctl {
namespace {

// As decimal: the command line's library takes 010 for 8.
CLI::Validator WholeNumber(uint32_t low, uint32_t high) {
  const auto check = [low, high](std::string& text) -> std::string {
    try {
      text = std::to_string(ParseWholeNumber(text, low, high));
    } catch (const UsageError& e) {
      return e.what();
    }
    return "";
  };
  return {check, ""};
}

void AddGlobalOptions(CLI::App& app, GlobalOptions* globals) {
  app.add_option("--plugin", globals->session.plugin, "The plug-in's library")
      ->take_last()
      ->type_name("PATH");
  app.add_option("--panel", globals->session.panel, "Panel description, handed to the plug-in")
      ->take_last()
      ->each([globals](const std::string&) { globals->panel_given = true; })
      ->type_name("PATH");
  app.add_option("--log-level", globals->session.log_level,
                 "0 errors, 1 start-up too, 2 everything; default: the\n"
                 "environment's vendor.display.zelloglevel, or else 0")
      ->check(WholeNumber(0, 2))
      ->type_name("LEVEL");
  app.add_option("--parser", globals->session.libraries.parser,
                 "The mode parser; default: as the plug-in finds it by name")
      ->take_last()
      ->type_name("FILE");
  app.add_option("--algo", globals->session.libraries.algo,
                 "The algorithm library; default: the same way")
      ->take_last()
      ->type_name("FILE");
  app.add_flag("--strict", globals->strict,
               "Fail where the host would not get an answer whole: a failed\n"
               "parser, a block that does not arrive, a number that is none");
  auto* json = app.add_flag("--json", globals->json, "Print JSON instead of tables; not for plot");
  app.add_flag("--tables", globals->tables, "With --json: tables and opaque bytes in full")
      ->needs(json);
  globals->session.problems = &globals->problems;
}

// An option whose text `parse` turns into a value; its complaint names the option.
template <typename Value, typename T>
void AddParsedOption(CLI::App& command, const std::string& name, Value* value, const char* type,
                     T (*parse)(const std::string&), const char* help) {
  command
      .add_option_function<std::string>(
          name,
          [=](const std::string& text) {
            try {
              *value = parse(text);
            } catch (const UsageError& e) {
              throw UsageError(name + ": " + e.what());
            }
          },
          help)
      ->type_name(type);
}

void AddTableSize(CLI::App& command, TableSize* size) {
  const std::string option = "--" + std::string(size->name);
  command
      .add_option(option + "-entries", size->entries,
                  "Entries of the table; default " + std::to_string(size->usual.num_of_entries))
      ->check(WholeNumber(1, size->max_entries))
      ->type_name("N");
  command
      .add_option(option + "-bits", size->bits,
                  "Bit depth of an entry; default " + std::to_string(size->usual.bit_depth))
      ->check(WholeNumber(0, UINT32_MAX))
      ->type_name("N");
}

void AddRenderOptions(CLI::App& command, RenderOptions* options) {
  AddParsedOption(command, "--color-transform", &options->color_transform, "TRANSFORM",
                  ParseColorTransform, kColorTransformHelp);
  AddParsedOption(command, "--ltm", &options->ltm, "FILE", ReadLtmFile, kLtmHelp);
  AddParsedOption(command, "--dimming", &options->dimming, "F", ParseDimming,
                  "Factor on the whole PCC block");
  for (TableSize* size : {&options->igc, &options->gc, &options->gamut}) {
    AddTableSize(command, size);
  }
  command.add_flag("--calibration", options->calibration, "Announce the calibration mode first");
}

void AddRenderCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<RenderArguments>();
  auto* command = app.add_subcommand("render", "Switch to a mode and show its hardware blocks");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command
      ->add_option("--from", arguments->from,
                   "Render this mode first, without settings, into the same\noutput record")
      ->type_name("MODE");
  AddRenderOptions(*command, &arguments->options);
  auto* repeat = command
                     ->add_option("--repeat", arguments->repeat,
                                  "Pass the same output record N times, as a host does")
                     ->check(WholeNumber(1, 1000))
                     ->type_name("N");
  command
      ->add_flag("--steps", arguments->steps,
                 "Render after each of colour transform, LTM and dimming")
      ->excludes(repeat);
  auto* image = command
                    ->add_option("--image", arguments->image,
                                 "Send this PNG picture through IGC, gamut, PCC and GC")
                    ->type_name("IN.png");
  auto* image_output =
      command->add_option("-o,--output", arguments->image_output, "Where that picture goes")
          ->type_name("OUT.png");
  image->needs(image_output);
  image_output->needs(image);
  command->add_flag("--small", arguments->small, "Take the time to make OUT.png small")
      ->needs(image);
  command->add_option("--threads", arguments->threads, "For the picture; default: one per processor")
      ->needs(image)
      ->check(WholeNumber(1, 1024))
      ->type_name("N");
  command->footer(kRenderHelp);
  command->callback([&globals, arguments] { RunRender(globals, *arguments); });
}

PlotKind ParsePlotKind(const std::string& text) {
  static const std::map<std::string, PlotKind> kinds = {{"all", PlotKind::kAll},
                                                        {"gamut", PlotKind::kGamut},
                                                        {"curves", PlotKind::kCurves},
                                                        {"pcc", PlotKind::kPcc}};
  const auto found = kinds.find(text);
  if (found == kinds.end()) throw UsageError("expected all, gamut, curves or pcc");
  return found->second;
}

void AddPlotCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<PlotArguments>();
  auto* command = app.add_subcommand("plot", "Draw a mode: gamut, curves, effect of the PCC block");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command->add_option("-o,--output", arguments->output, "The picture; its ending says which kind")
      ->required()
      ->type_name("FILE.svg|FILE.png");
  AddParsedOption(*command, "--what", &arguments->kind, "PART", ParsePlotKind,
                  "all, gamut, curves or pcc; default: all");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kPlotHelp);
  command->callback([&globals, arguments] { RunPlot(globals, *arguments); });
}

void AddExportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ExportArguments>();
  auto* command = app.add_subcommand("export", "Write a mode in a format of other programs");
  command->add_option("MODE", arguments->mode, kModeHelp)->required()->type_name("");
  command->add_option("--format", arguments->format, "clf, cube, icc, ti3, csv or json")
      ->required()
      ->type_name("FORMAT");
  command->add_option("-o,--output", arguments->output, "Where it goes")
      ->required()
      ->type_name("FILE");
  FormatOptions* format = &arguments->format_options;
  command->add_option("--size", format->size, "cube: nodes per channel, 2 to 129; default 65")
      ->type_name("N");
  command->add_option("--icc-version", format->icc_version, "icc: 2 or 4; default 4")
      ->type_name("VERSION");
  command->add_flag(
      "--target", format->target,
      "ti3: the colours that the mode asks for, in place of\nthose that the panel shows");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kExportHelp);
  command->callback([&globals, arguments] { RunExport(globals, *arguments); });
}

void AddReportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ReportArguments>();
  auto* command = app.add_subcommand("report", "Judge the colours of modes, on a page of HTML");
  command->add_option("MODE", arguments->modes, std::string(kModeHelp) + "; default: all modes")
      ->type_name("");
  command->add_option("-o,--output", arguments->output, "The page")->type_name("FILE.html");
  command
      ->add_option("--patches", arguments->patches,
                   "Write the patches of the one MODE, to be measured")
      ->type_name("FILE.ti1");
  command
      ->add_option("--measured", arguments->measured,
                   "Measurements of the one MODE's patches, to compare with")
      ->type_name("FILE.ti3");
  AddRenderOptions(*command, &arguments->options);
  command->footer(kReportHelp);
  command->callback([&globals, arguments] { RunReport(globals, *arguments); });
}

void AddAssetsCommand(CLI::App& app, const GlobalOptions& globals) {
  auto mode = std::make_shared<std::string>();
  auto* command = app.add_subcommand("assets", "Show the software assets of a mode");
  command->add_option("MODE", *mode, kModeHelp)->required()->type_name("");
  command->footer(kAssetsHelp);
  command->callback([&globals, mode] { RunAssets(globals, *mode); });
}

void AddValidateCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ValidateArguments>();
  auto* command = app.add_subcommand("validate", "Check a mode parser or an algorithm library");
  command->add_option("--arg", arguments->arg, "Text for Init; default: the path of --panel")
      ->type_name("TEXT");
  command
      ->add_option("--timeout", arguments->timeout,
                   "Seconds that a library may take for a call; default 10")
      ->check(WholeNumber(1, 3600))
      ->type_name("SECONDS");
  command->footer(kValidateHelp);
  command->callback([&globals, arguments] { RunValidate(globals, *arguments); });
}

void AddImportCommand(CLI::App& app, const GlobalOptions& globals) {
  auto arguments = std::make_shared<ImportArguments>();
  ImportOptions* options = &arguments->options;
  auto* command = app.add_subcommand("import", "Describe a panel by its profile or measurements");
  command->add_option("FILE", arguments->file, "An ICC display profile or a CGATS .ti3")
      ->required()
      ->type_name("");
  command->add_option("-o,--output", arguments->output, "The panel description")
      ->required()
      ->type_name("PANEL.json");
  AddParsedOption(*command, "--peak", &options->peak, "CD/M2", ParseNumber,
                  "Luminance of white at full signal");
  AddParsedOption(*command, "--black", &options->black, "CD/M2", ParseNumber,
                  "Luminance of signal 0");
  command->add_option("--bit-depth", options->bit_depth, "Depth of the panel's signal")
      ->check(CLI::Range(6U, 16U).description(""))
      ->type_name("N");
  command->add_option("--transfer", options->transfer, "linear, srgb or an exponent")
      ->type_name("CURVE");
  command->add_option("--targets", options->targets, kTargetsHelp)
      ->delimiter(',')
      ->allow_extra_args(false)
      ->type_name("NAME,...");
  command->add_option("--name", options->name, "The panel's name; default: the file's own")
      ->type_name("TEXT");
  command->footer(kImportHelp);
  command->callback([&globals, arguments] { RunImport(globals, *arguments); });
}

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
