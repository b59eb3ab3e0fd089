// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/run_time_libraries.h"

#include <dlfcn.h>

#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <memory>
#include <mutex>
#include <utility>

#include "bridge/tarn_intf.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/library_listener.h"
#include "devkit/zelctl/validate/cxx_runtime.h"

namespace zelctl {
namespace {

// One of the two libraries.
struct OpenedLibrary {
  const char* name;
  const char* symbol;
  std::string file = {};
  void* handle = nullptr;
  std::string failure = {};  // why it can't be used
};

// What the calls from outside find: at most one plug-in runs at a time.
struct State {
  OpenedLibrary parser = {tarn::kModeParserLibrary, tarn::kModeParserSymbol};
  OpenedLibrary algo = {tarn::kTarnAlgoLibrary, tarn::kTarnAlgoSymbol};
  LibraryNotes notes = {};
};
std::unique_ptr<State> g_state;

using Dlopen = void* (*)(const char*, int);

Dlopen LoadersOwn() {
  static const auto original = reinterpret_cast<Dlopen>(dlsym(RTLD_NEXT, "dlopen"));
  return original;
}

// The handle that the plug-in gets: this program's, whose factories put a listener
// before the library's object; or the library's own where it lacks the factory, so that
// the plug-in finds that out itself.
void* Open(OpenedLibrary* library, int mode) {
  {
    const CallWatch watch("opening " + library->file);
    library->handle = LoadersOwn()(library->file.c_str(), mode);
  }
  if (library->handle == nullptr) {
    library->failure = dlerror();
    return nullptr;
  }
  library->failure = ForeignCxxRuntime(library->file);
  if (!library->failure.empty()) {
    dlclose(std::exchange(library->handle, nullptr));
    return nullptr;
  }
  if (dlsym(library->handle, library->symbol) == nullptr) {
    library->failure = "it exports no " + std::string(library->symbol);
    return std::exchange(library->handle, nullptr);
  }
  return LoadersOwn()(nullptr, mode);
}

// The library that is opened under this name; null for any other file.
OpenedLibrary* Named(const char* file) {
  if (g_state == nullptr || file == nullptr) return nullptr;
  for (OpenedLibrary* const library : {&g_state->parser, &g_state->algo}) {
    if (std::strcmp(file, library->name) == 0) return library;
  }
  return nullptr;
}

template <typename Interface, typename Listener>
Interface* MakeListener(OpenedLibrary* library, int major, int minor) {
  const auto factory =
      reinterpret_cast<Interface* (*)(int, int)>(dlsym(library->handle, library->symbol));
  const CallWatch watch("calling the factory of " + library->file);
  std::unique_ptr<Interface> object(factory(major, minor));
  if (object == nullptr) {
    library->failure = std::string(library->symbol) + "(2, 0) gave no object";
    return nullptr;
  }
  return new Listener(std::move(object), &g_state->notes);
}

// What it answered in its start-up, or why it can't be used at all.
std::string Failure(const std::string& role, const OpenedLibrary& library,
                    const std::string& start_up) {
  const std::string place = role + " " + library.file + ": ";
  if (!start_up.empty()) return place + start_up;
  if (library.failure.empty()) return "";
  const bool named = library.failure.find(library.file) != std::string::npos;  // by the loader
  return "can't use " + (named ? role + " " : place) + library.failure;
}

std::string Absolute(const std::optional<std::string>& file, const char* name,
                     const std::string& plugin) {
  return file ? std::filesystem::absolute(*file).string() : FindByName(name, plugin);
}

}  // namespace

std::string FindByName(const std::string& name, const std::string& plugin) {
  const char* environment = std::getenv("LD_LIBRARY_PATH");
  auto folders = Split(environment == nullptr ? "" : environment, ":;");
  folders.push_back(std::filesystem::path(plugin).parent_path());
  for (const std::filesystem::path folder : folders) {
    std::error_code ignored;
    if (exists(folder / name, ignored)) return absolute(folder / name);
  }
  return name;
}

RunTimeLibraries::RunTimeLibraries(const LibraryFiles& files, const std::string& plugin) {
  g_state = std::make_unique<State>();
  g_state->parser.file = Absolute(files.parser, g_state->parser.name, plugin);
  g_state->algo.file = Absolute(files.algo, g_state->algo.name, plugin);
}

RunTimeLibraries::~RunTimeLibraries() {
  for (void* handle : {g_state->algo.handle, g_state->parser.handle}) {
    if (handle != nullptr) dlclose(handle);
  }
  g_state.reset();
}

void RunTimeLibraries::SetEntries(velaricolor::VcProperty property, uint32_t entries) {
  if (property == velaricolor::kVcPostBlendInverseGammaHwConfig) {
    g_state->notes.igc_entries = entries;
  } else if (property == velaricolor::kVcPostBlendGammaHwConfig) {
    g_state->notes.gc_entries = entries;
  }
}

std::vector<std::string> RunTimeLibraries::TakeProblems() {
  return std::exchange(g_state->notes.problems, {});
}

std::string RunTimeLibraries::ParserFailure() const {
  return Failure(kParserRole, g_state->parser, g_state->notes.parser_start_up);
}

std::string RunTimeLibraries::AlgoFailure() const {
  return Failure(kAlgoRole, g_state->algo, g_state->notes.algo_start_up);
}

bool RunTimeLibraries::AlgoIsThere() const {
  return g_state->algo.file.find('/') != std::string::npos;
}

}  // namespace zelctl

// What the plug-in calls. For any other file it is the loader's own, called in this
// function's stead, for the loader searches where the caller's library says.

// Under a name of its own, for what is declared not to throw makes no call in its stead.
extern "C" __attribute__((visibility("default"))) void* OpenLibrary(const char* file,
                                                                    int mode) __asm__("dlopen");

extern "C" void* OpenLibrary(const char* file, int mode) {
  if (zelctl::Named(file) != nullptr) return zelctl::Open(zelctl::Named(file), mode);
  [[clang::musttail]] return zelctl::LoadersOwn()(file, mode);
}

__attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(int major,
                                                                                 int minor) {
  return zelctl::MakeListener<tarn::ModeParserIntf, zelctl::ParserListener>(
      &zelctl::g_state->parser, major, minor);
}

__attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major,
                                                                                int minor) {
  return zelctl::MakeListener<tarn::TarnAlgoIntf, zelctl::AlgoListener>(&zelctl::g_state->algo,
                                                                        major, minor);
}
