// The subcommands. Each adds itself to the program, runs when it was chosen,
// and throws CLI::Error, UsageError or CallError.
#pragma once

#include <CLI/App.hpp>

#include "devkit/zelctl/host_session.h"

namespace zelctl {

// Filled before a subcommand runs; outlives it.
struct GlobalOptions {
  SessionOptions session;
  bool json = false;
};

void AddModesCommand(CLI::App& app, const GlobalOptions& globals);
void AddRenderCommand(CLI::App& app, const GlobalOptions& globals);
void AddPlotCommand(CLI::App& app, const GlobalOptions& globals);
void AddAssetsCommand(CLI::App& app, const GlobalOptions& globals);
void AddDitherCommand(CLI::App& app, const GlobalOptions& globals);
void AddCapsCommand(CLI::App& app, const GlobalOptions& globals);

}  // namespace zelctl
