// SPDX-License-Identifier: Apache-2.0

// The lines of `validate`.
#pragma once

#include <array>
#include <ostream>
#include <string>
#include <vector>

#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/validate/finding.h"
#include "devkit/zelctl/validate/rule_process.h"

namespace zelctl {

class RuleReport {
 public:
  // As JSON, everything is printed at the end. What the library itself prints is shown
  // after a rule that failed, or after all.
  RuleReport(bool json, bool all_printed, std::ostream* out);

  // Printed at once, but for skipped rules: those that follow each other for one reason
  // share a line.
  void Add(const std::string& library, const std::string& rule,
           const RuleProcess::Outcome& outcome);

  // The count. Throws std::runtime_error where a rule failed.
  void Finish();

 private:
  void PrintSkipped();
  void PrintLine(const std::string& library, const std::string& rule, const std::string& result,
                 const std::string& seen);

  bool json_;
  bool all_printed_;
  std::ostream* out_;
  Json rules_ = Json::array();
  std::array<size_t, 4> counts_ = {};  // per Verdict

  // Skipped rules that have no line yet.
  struct Skipped {
    std::string library;
    std::string seen;
    std::vector<std::string> rules;
  } skipped_;
};

}  // namespace zelctl
