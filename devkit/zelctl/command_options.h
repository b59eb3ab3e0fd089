// SPDX-License-Identifier: Apache-2.0

// What each subcommand takes.
#pragma once

#include "devkit/zelctl/commands.h"

namespace CLI {
class App;
}

namespace zelctl {

void AddGlobalOptions(CLI::App& app, GlobalOptions* globals);

// In the order of the help. `globals` must outlive the parsing, in which the commands run.
void AddCommands(CLI::App& app, const GlobalOptions& globals);

}  // namespace zelctl
