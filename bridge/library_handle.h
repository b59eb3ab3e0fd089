// SPDX-License-Identifier: Apache-2.0

// Owner of an opened run-time library.
#pragma once

#include <string>

namespace velaricolor {

class LibraryHandle {
 public:
  LibraryHandle() = default;
  ~LibraryHandle() { Close(); }
  LibraryHandle(const LibraryHandle&) = delete;
  LibraryHandle& operator=(const LibraryHandle&) = delete;

  // Closes the library held so far, then opens `name` with all its symbols
  // bound. False when that fails.
  bool Open(const std::string& name);

  // Address of an exported symbol, or null.
  void* Symbol(const std::string& symbol) const;

 private:
  void Close();

  void* handle_ = nullptr;
};

}  // namespace velaricolor
