// SPDX-License-Identifier: Apache-2.0

// The formats that a mode can be written in. Each has a file of its own here.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/blocks/block_pipeline.h"
#include "devkit/zelctl/json_output.h"
#include "modes/color_mode.h"

namespace zelctl {

// A mode as the plug-in answered it, with all settings.
struct ExportedMode {
  std::string panel_path;  // its description
  velaricolor::ColorMode mode;
  std::string settings;  // SettingsText
  Json blocks;           // every block, tables in full
  BlockPipeline pipeline;

  // "mode srgb of panel phone-oled, dimming 0.6", one line of valid UTF-8.
  std::string Title() const;
  // A word that changes with the contents of the blocks.
  std::string Id() const;
};

// What some formats ask for in addition.
struct FormatOptions {
  std::optional<uint32_t> size;            // cube: nodes per channel
  std::optional<std::string> icc_version;  // icc: "2" or "4"
  bool target = false;                     // ti3: what is asked for, in place of what is shown
};

struct ExportedFile {
  std::string bytes;
  std::string warning;  // one line for the user, or empty
};

struct ExportFormat {
  const char* name;
  bool reads_description;  // of the panel, in addition to the blocks
  ExportedFile (*write)(const ExportedMode& mode, const FormatOptions& options);
};

// Throws UsageError, with the known ones, for another name.
const ExportFormat& FindExportFormat(const std::string& name);

// Throws UsageError where an option is set that the format doesn't have.
void RefuseOtherFormatsOptions(const ExportFormat& format, const FormatOptions& options);

// Throws UsageError where `path` ends as another format's files do: programs go by that.
void RefuseOtherFormatsEnding(const ExportFormat& format, const std::string& path);

}  // namespace zelctl
