#include <iostream>
#include <memory>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/mode_selection.h"

namespace zelctl {
namespace {

void RunAssets(const GlobalOptions& globals, const std::string& mode_text) {
  HostSession session(globals.session);
  const auto list = session.Get<velaricolor::ColorModeList>(velaricolor::kVcModesList);
  const auto& mode = list.modes[SelectMode(list, mode_text)];
  velaricolor::HwConfigOutputParams output;
  session.Process(velaricolor::kVcModeSwAssets, mode, &output);
  ReportBlocks(output, globals.json, std::cout);
}

}  // namespace

void AddAssetsCommand(CLI::App& app, const GlobalOptions& globals) {
  auto mode = std::make_shared<std::string>();
  auto* command = app.add_subcommand("assets", "Show the software assets of a mode");
  command->add_option("MODE", *mode, kModeHelp)->required()->type_name("");
  command->callback([&globals, mode] { RunAssets(globals, *mode); });
}

}  // namespace zelctl
