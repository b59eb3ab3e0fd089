// SPDX-License-Identifier: Apache-2.0

// The reference libraries, in a process whose libraries of those names are the
// benchmark's: these hand on to them when told to.
#pragma once

#include <string>

#include "bridge/tarn_intf.h"

struct ReferenceLibraries {
  tarn::ModeParserFactory parser = nullptr;
  tarn::TarnAlgoFactory algo = nullptr;
  std::string panel;  // description that the parser is to read
};

// Opens those beside the plug-in, once.
const ReferenceLibraries& TheReference();

// Whether an object that is made from now on is the reference's.
__attribute__((visibility("default"))) extern const ReferenceLibraries* g_reference;
