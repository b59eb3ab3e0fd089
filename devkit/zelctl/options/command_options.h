// SPDX-License-Identifier: Apache-2.0

// What a command line may hold. A command's own options are in NAME_options.cpp.
#pragma once

#include <CLI/App.hpp>

#include "devkit/zelctl/commands.h"

namespace zelctl {

// Those of every command.
void AddGlobalOptions(CLI::App& app, GlobalOptions* globals);

// What the commands that render a mode set on the plug-in first.
void AddRenderOptions(CLI::App& command, RenderOptions* options);

// The subcommands that have arguments of their own. `globals` is read when they run.
void AddRenderCommand(CLI::App& app, const GlobalOptions& globals);
void AddPlotCommand(CLI::App& app, const GlobalOptions& globals);
void AddExportCommand(CLI::App& app, const GlobalOptions& globals);
void AddReportCommand(CLI::App& app, const GlobalOptions& globals);
void AddAssetsCommand(CLI::App& app, const GlobalOptions& globals);
void AddValidateCommand(CLI::App& app, const GlobalOptions& globals);
void AddImportCommand(CLI::App& app, const GlobalOptions& globals);

}  // namespace zelctl
