// SPDX-License-Identifier: Apache-2.0

// A host in one file: loads the plug-in, lists the panel's modes, shows the first one,
// then switches to the last one with a warmer white at 60 % brightness.
//
// Usage: host PLUGIN TEXT    TEXT goes to Init; the reference parser reads a panel's file
#include <dlfcn.h>

#include <cstdio>
#include <exception>
#include <memory>
#include <stdexcept>
#include <string>

#include "interface/host.h"

namespace {

using velaricolor::VcPayload;
using velaricolor::VcPostBlendInterface;

void Check(const char* call, int code) {
  if (code == velaricolor::kOk) return;
  throw std::runtime_error(std::string(call) + " answered " + std::to_string(code));
}

using Library = std::unique_ptr<void, int (*)(void*)>;

Library Open(const char* path) {
  Library library(dlopen(path, RTLD_NOW | RTLD_LOCAL), dlclose);
  if (library == nullptr) throw std::runtime_error(dlerror());
  return library;
}

std::unique_ptr<VcPostBlendInterface> Create(const Library& library) {
  void* const symbol = dlsym(library.get(), "GetVcPostBlendInterface");
  if (symbol == nullptr) throw std::runtime_error(dlerror());
  const auto factory = reinterpret_cast<decltype(&GetVcPostBlendInterface)>(symbol);
  std::unique_ptr<VcPostBlendInterface> plugin(factory(2, 0));
  if (plugin == nullptr) throw std::runtime_error("the plug-in is not of version 2.0");
  return plugin;
}

template <typename Record>
void Set(VcPostBlendInterface* plugin, velaricolor::VcProperty property, Record record) {
  const VcPayload envelope = velaricolor::Wrap(&record, property);
  Check("SetProperty", plugin->SetProperty(envelope));
}

template <typename Record>
void Get(VcPostBlendInterface* plugin, velaricolor::VcProperty property, Record* record) {
  VcPayload envelope = velaricolor::Wrap(record, property);
  Check("GetProperty", plugin->GetProperty(&envelope));
}

// `output` may be that of the switch before: its blocks are updated, those that the new
// mode lacks stay.
void SwitchTo(const velaricolor::ColorMode& mode, VcPostBlendInterface* plugin,
              velaricolor::HwConfigOutputParams* output) {
  velaricolor::ModeRenderInputParams request = {};  // {}: nothing in it is left undefined
  request.hw_assets = mode.hw_assets;
  request.mode = mode;
  const VcPayload in = velaricolor::Wrap(&request);
  VcPayload out = velaricolor::Wrap(output);
  Check("ProcessOps", plugin->ProcessOps(velaricolor::kVcModeRenderIntent, in, &out));
}

// What a real host programs into the hardware. The name tells the record's type.
void Show(const char* title, const velaricolor::HwConfigOutputParams& output) {
  std::printf("%s\n", title);
  for (const velaricolor::HwConfigPayload& block : output.payloads) {
    std::printf("  %s, %u bytes\n", block.hw_block.c_str(), block.len);
    if (block.hw_block != velaricolor::kPostBlendPCC || block.payload == nullptr) continue;
    const auto& pcc = *static_cast<const velaricolor::PccPostBlendConfig*>(block.payload.get());
    for (const zeltarn::PccRow& row : {pcc.coeffs.r, pcc.coeffs.g, pcc.coeffs.b}) {
      std::printf("    %s %8.4f %8.4f %8.4f %8.4f\n", pcc.enable ? "on" : "off", row[0], row[1],
                  row[2], row[3]);
    }
  }
}

void Run(const char* path, const std::string& text) {
  // In this order: the records go first, then the object, then the library that they need.
  const Library library = Open(path);
  const std::unique_ptr<VcPostBlendInterface> plugin = Create(library);
  Check("Init", plugin->Init(text));

  velaricolor::ColorModeList list;
  Get(plugin.get(), velaricolor::kVcModesList, &list);
  if (list.modes.empty()) throw std::runtime_error("the panel has no modes");

  velaricolor::HwConfigOutputParams output;
  SwitchTo(list.modes.front(), plugin.get(), &output);
  Show(list.modes.front().label.c_str(), output);

  velaricolor::ColorTransformMatrix warm;  // column by column; the identity until changed
  warm.matrix[5] = 0.9F;
  warm.matrix[10] = 0.7F;
  Set(plugin.get(), velaricolor::kVcColorTransform, warm);
  Set(plugin.get(), velaricolor::kVcDimmingPcc, 0.6);
  SwitchTo(list.modes.back(), plugin.get(), &output);
  Show(list.modes.back().label.c_str(), output);
  Check("DeInit", plugin->DeInit());
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 3) {
    std::fprintf(stderr, "usage: host PLUGIN TEXT\n");
    return 2;
  }
  try {
    Run(argv[1], argv[2]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "host: %s\n", error.what());
    return 1;
  }
}
