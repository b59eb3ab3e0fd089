// zelctl: drives the plug-in from the command line, as a display service would.
#include <exception>
#include <iostream>

#include "devkit/zelctl/command_line.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/standard_streams.h"

int main(int argc, char** argv) {
  zelctl::OccupyStandardStreams();
  try {
    return zelctl::RunCommandLine(argc, argv);
  } catch (const zelctl::UsageError& e) {
    std::cerr << "zelctl: " << e.what() << '\n';
    return zelctl::kExitUsage;
  } catch (const std::exception& e) {
    std::cerr << "zelctl: " << e.what() << '\n';
    return zelctl::kExitCallFailed;
  }
}
