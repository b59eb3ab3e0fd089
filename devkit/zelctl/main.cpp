// zelctl: drives the plug-in from the command line, as a display service would.
#include <CLI/App.hpp>
#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>
#include <exception>
#include <filesystem>
#include <iostream>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

constexpr const char* kExamples =
    "Examples:\n"
    "  zelctl modes\n"
    "  zelctl render srgb\n"
    "  zelctl render 1 --color-transform night:3400 --dimming 0.6 --steps\n"
    "  zelctl render srgb --from native --json\n"
    "  zelctl render srgb --image in.png -o out.png\n"
    "  zelctl plot srgb --color-transform night:3400 -o srgb.svg\n"
    "  zelctl --panel my-panel.json --log-level 2 assets native\n"
    "\n"
    "Exit status: 0; 1 when a call of the plug-in failed; 2 for a wrong mode, file or number.";

void AddGlobalOptions(CLI::App& app, GlobalOptions* globals) {
  app.add_option("--plugin", globals->session.plugin, "The plug-in's library")
      ->take_last()
      ->type_name("PATH");
  app.add_option("--panel", globals->session.panel, "Panel description, handed to the plug-in")
      ->take_last()
      ->type_name("PATH");
  app.add_option("--log-level", globals->session.log_level,
                 "0 errors, 1 start-up too, 2 everything; default: the\n"
                 "environment's vendor.display.zelloglevel, or else 1")
      ->check(CLI::Range(0, 2).description(""))
      ->type_name("LEVEL");
  app.add_flag("--json", globals->json, "Print JSON instead of tables");
}

int Run(int argc, char** argv) {
  const auto build = std::filesystem::read_symlink("/proc/self/exe").parent_path().parent_path();
  GlobalOptions globals;
  globals.session.plugin = build / "lib" / "libzeltarn.so";
  globals.session.panel = build / "panels" / "phone-oled.json";

  CLI::App app("Loads the zeltarn display colour-management plug-in and drives it as a host does.",
               "zelctl");
  app.footer(kExamples);
  app.fallthrough();  // global options may follow the subcommand
  AddGlobalOptions(app, &globals);
  AddModesCommand(app, globals);
  AddRenderCommand(app, globals);
  AddPlotCommand(app, globals);
  AddAssetsCommand(app, globals);
  AddDitherCommand(app, globals);
  AddCapsCommand(app, globals);

  try {
    app.parse(argc, argv);
    if (app.get_subcommands().empty()) throw UsageError("which subcommand? See zelctl --help");
  } catch (const CLI::Success& help) {
    app.exit(help);
  } catch (const CLI::Error& e) {
    throw UsageError(e.what());
  }
  if (!std::cout.flush()) throw std::runtime_error("can't write to standard output");
  return 0;
}

}  // namespace
}  // namespace zelctl

int main(int argc, char** argv) {
  try {
    return zelctl::Run(argc, argv);
  } catch (const zelctl::UsageError& e) {
    std::cerr << "zelctl: " << e.what() << '\n';
    return zelctl::kExitUsage;
  } catch (const std::exception& e) {
    std::cerr << "zelctl: " << e.what() << '\n';
    return zelctl::kExitCallFailed;
  }
}
