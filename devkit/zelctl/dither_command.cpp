#include <iostream>

#include "devkit/zelctl/block_report.h"
#include "devkit/zelctl/commands.h"

namespace zelctl {

void AddDitherCommand(CLI::App& app, const GlobalOptions& globals) {
  auto* command = app.add_subcommand("dither", "Show the global dither configuration");
  command->callback([&globals] {
    HostSession session(globals.session);
    const auto output =
        session.Get<velaricolor::HwConfigOutputParams>(velaricolor::kVcPbDitherHwConfig);
    ReportBlocks(output, globals.json, std::cout);
  });
}

}  // namespace zelctl
