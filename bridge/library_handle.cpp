// SPDX-License-Identifier: Apache-2.0
#include "bridge/library_handle.h"

#include <dlfcn.h>

#include <utility>

namespace velaricolor {

bool LibraryHandle::Open(const std::string& name) {
  Close();
  handle_ = dlopen(name.c_str(), RTLD_NOW);
  return handle_ != nullptr;
}

void* LibraryHandle::Symbol(const std::string& symbol) const {
  return dlsym(handle_, symbol.c_str());
}

void LibraryHandle::Close() {
  if (void* held = std::exchange(handle_, nullptr); held != nullptr) dlclose(held);
}

}  // namespace velaricolor
