// SPDX-License-Identifier: Apache-2.0

// Finding a run-time library's factory.
#pragma once

#include <string>

#include "bridge/library_handle.h"
#include "plugin/log.h"

namespace velaricolor {

// The factory that `library` exports as `symbol`; null, with an error line under
// `function`, where it has none.
template <typename Factory>
Factory FindFactory(const LibraryHandle& library, const std::string& library_name,
                    const std::string& symbol, const char* function) {
  void* const address = library.Symbol(symbol);
  if (address == nullptr) {
    ZEL_LOGE_AS(function, "Failed to retrieve = %s from %s", symbol.c_str(), library_name.c_str());
  }
  return reinterpret_cast<Factory>(address);
}

}  // namespace velaricolor
