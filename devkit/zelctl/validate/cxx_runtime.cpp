// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/cxx_runtime.h"

#include <dlfcn.h>
#include <link.h>

#include <memory>

namespace zelctl {

std::string ForeignCxxRuntime(const std::string& file) {
  const std::unique_ptr<void, int (*)(void*)> library(dlopen(file.c_str(), RTLD_NOW | RTLD_NOLOAD),
                                                      dlclose);
  link_map* map = nullptr;
  if (library == nullptr || dlinfo(library.get(), RTLD_DI_LINKMAP, &map) != 0) return "";
  const char* names = nullptr;
  for (const ElfW(Dyn)* entry = map->l_ld; entry->d_tag != DT_NULL; ++entry) {
    if (entry->d_tag != DT_STRTAB) continue;
    names = reinterpret_cast<const char*>(entry->d_un.d_ptr);  // NOLINT(performance-no-int-to-ptr)
  }
  for (const ElfW(Dyn)* entry = map->l_ld; names != nullptr && entry->d_tag != DT_NULL; ++entry) {
    if (entry->d_tag != DT_NEEDED) continue;
    const std::string needed = names + entry->d_un.d_val;
    if (!needed.starts_with("libstdc++.so")) continue;
    return "linked to another C++ runtime, " + needed +
           ": records hold strings and vectors of libc++";
  }
  return "";
}

}  // namespace zelctl
