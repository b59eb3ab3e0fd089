// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/installation.h"

#include <filesystem>

namespace zelctl {

Installation FindInstallation() {
  const auto program = std::filesystem::read_symlink("/proc/self/exe");
  const auto prefix = program.parent_path().parent_path();
  // The build folder has its libraries in lib, whatever the installation's is called.
  auto plugin = prefix / ZELTARN_LIBDIR / "libzeltarn.so";
  if (!exists(plugin)) plugin = prefix / "lib" / "libzeltarn.so";
  return {plugin, prefix / ZELTARN_DATADIR / "zeltarn" / "panels" / "phone-oled.json"};
}

}  // namespace zelctl
