// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/session.h"

#include <dlfcn.h>

#include <cstdio>
#include <cstdlib>

std::unique_ptr<Session> g_session;

namespace {

void* OpenPlugin() {
  void* const library = dlopen("libzeltarn.so", RTLD_NOW);
  if (library == nullptr) {
    std::fprintf(stderr, "%s\n", dlerror());
    std::exit(2);
  }
  return library;
}

}  // namespace

Session::Session(const std::string& arg) : library_(OpenPlugin()) {
  auto* const factory = reinterpret_cast<decltype(&GetVcPostBlendInterface)>(
      dlsym(library_, "GetVcPostBlendInterface"));
  plugin_.reset(factory(2, 0));
  if (plugin_->Init(arg) != velaricolor::kOk) {
    std::fputs("Init failed\n", stderr);
    std::exit(2);
  }
}

Session::~Session() {
  plugin_.reset();
  dlclose(library_);
}

void Session::Run(velaricolor::VcOps op, velaricolor::HwConfigOutputParams* output) {
  const velaricolor::VcPayload in = {.len = sizeof(request), .payload = &request};
  velaricolor::VcPayload out = {.len = sizeof(*output), .payload = output};
  plugin_->ProcessOps(op, in, &out);
}
