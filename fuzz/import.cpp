// SPDX-License-Identifier: Apache-2.0

// Profiles and measurements: each is refused with a reason, or becomes a description that
// the panel reader takes.
#include <string>

#include "devkit/reference/panel/read_panel.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/import/description.h"
#include "devkit/zelctl/import/import_panel.h"
#include "fuzz/input.h"

using zeltarn::fuzz::Require;

namespace {

void Import(const std::string& bytes, const zelctl::ImportOptions& options) {
  try {
    const std::string text = zelctl::DescriptionText(zelctl::ImportPanel("in", bytes, options));
    const auto panel = tarn::reference::ReadPanel(nlohmann::json::parse(text));
    Require(panel.modes.size() == 1 + options.targets.size(), "all modes");
    Require(panel.notes.empty(), "nothing that the reader would have to mend");
  } catch (const zelctl::UsageError& e) {
    const std::string reason = e.what();
    Require(reason.size() > 4 && reason.size() < 500, "a reason of a readable length");
    Require(reason.find('\n') == std::string::npos, "a reason in one line");
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const std::string bytes(reinterpret_cast<const char*>(data), size);
  Import(bytes, {.bit_depth = 8});
  Import(bytes, {.peak = 300,
                 .black = 0.1,
                 .bit_depth = 10,
                 .transfer = "2.2",
                 .targets = {"srgb", "bt2020_st2084"}});
  return 0;
}
