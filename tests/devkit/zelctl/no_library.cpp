// SPDX-License-Identifier: Apache-2.0

// For zelctl validate: a library that is linked to another C++ runtime, or one that needs
// what nobody has, by the definition of UNDEFINED_SYMBOL.
#include <string>

#ifdef UNDEFINED_SYMBOL
extern "C" int NobodyDefinesThis();
#endif

extern "C" __attribute__((visibility("default"))) void* GetTarnAlgoInterface(int /*major*/,
                                                                             int /*minor*/) {
#ifdef UNDEFINED_SYMBOL
  return NobodyDefinesThis() == 0 ? nullptr : new std::string;
#else
  return new std::string("no object of the right kind");
#endif
}
