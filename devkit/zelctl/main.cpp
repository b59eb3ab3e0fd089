// SPDX-License-Identifier: Apache-2.0

// zelctl: drives the plug-in from the command line, as a display service would.
#include <algorithm>
#include <exception>
#include <iostream>
#include <string_view>

#include "devkit/zelctl/command_line.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/standard_streams.h"

namespace {

// An error is JSON too where JSON was asked for, whatever else is wrong with the
// arguments.
int Fail(const std::exception& error, int status, bool json) {
  std::cerr << "zelctl: " << error.what() << '\n';
  if (json) {
    zelctl::PrintJson({{"error", {{"message", error.what()}, {"status", status}}}}, std::cout);
  }
  return status;
}

}  // namespace

int main(int argc, char** argv) {
  zelctl::OccupyStandardStreams();
  const bool json = std::any_of(
      argv + 1, argv + argc, [](const char* text) { return text == std::string_view("--json"); });
  try {
    return zelctl::RunCommandLine(argc, argv);
  } catch (const zelctl::UsageError& e) {
    return Fail(e, zelctl::kExitUsage, json);
  } catch (const zelctl::ReportedError& e) {
    return Fail(e, zelctl::kExitCallFailed, false);
  } catch (const std::exception& e) {
    return Fail(e, zelctl::kExitCallFailed, json);
  }
}
