// SPDX-License-Identifier: Apache-2.0

// The rules for an algorithm library.
#pragma once

#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "devkit/zelctl/validate/library_rules.h"
#include "pcc/pcc_merge.h"

namespace zelctl {

struct AlgoSubject : LibrarySubject<tarn::TarnAlgoIntf> {
  static constexpr const char* kLibrary = "algorithm";
  static constexpr const char* kFile = tarn::kTarnAlgoLibrary;
  static constexpr const char* kSymbol = tarn::kTarnAlgoSymbol;
  static constexpr bool kMadeAtStartUp = true;

  using LibrarySubject::LibrarySubject;

  // The plug-in goes without the one that it finds by name.
  bool MayBeMissing() const { return file == kFile; }

  // The library's code. Notes what it did to records that it must leave alone.
  int Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active, pcc_coeff_data* result,
            tarn::ZelOps op = tarn::kZelPccMerge);

  Tally left_alone;
};

std::vector<Rule<AlgoSubject>> AlgoRules();

}  // namespace zelctl
