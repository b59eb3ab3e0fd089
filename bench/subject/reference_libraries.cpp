// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/reference_libraries.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>

const ReferenceLibraries* g_reference = nullptr;

namespace {

void* Need(void* found) {
  if (found != nullptr) return found;
  std::fprintf(stderr, "%s\n", dlerror());
  std::exit(2);
}

std::filesystem::path PluginFolder() {
  Dl_info info = {};
  void* const library = Need(dlopen("libzeltarn.so", RTLD_NOW));
  dladdr(Need(dlsym(library, "GetVcPostBlendInterface")), &info);
  std::filesystem::path folder = std::filesystem::path(info.dli_fname).parent_path();
  dlclose(library);
  return folder;
}

template <typename Factory>
Factory Open(const std::filesystem::path& folder, const char* library, const char* symbol) {
  void* const opened = Need(dlopen((folder / library).c_str(), RTLD_NOW));
  return reinterpret_cast<Factory>(Need(dlsym(opened, symbol)));
}

}  // namespace

const ReferenceLibraries& TheReference() {
  static const ReferenceLibraries libraries = [] {
    // The benchmark's own first, so that the plug-in goes on finding them by their names.
    Need(dlopen(tarn::kModeParserLibrary, RTLD_NOW));
    Need(dlopen(tarn::kTarnAlgoLibrary, RTLD_NOW));
    const std::filesystem::path folder = PluginFolder();
    return ReferenceLibraries{
        .parser = Open<tarn::ModeParserFactory>(folder, tarn::kModeParserLibrary,
                                                tarn::kModeParserSymbol),
        .algo = Open<tarn::TarnAlgoFactory>(folder, tarn::kTarnAlgoLibrary, tarn::kTarnAlgoSymbol),
        .panel = folder.parent_path() / "share/zeltarn/panels/phone-oled.json"};
  }();
  return libraries;
}
