// The lines of `validate`.
#pragma once

#include <array>
#include <ostream>
#include <string>

#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/validate/finding.h"

namespace zelctl {

class RuleReport {
 public:
  // As JSON, everything is printed at the end.
  RuleReport(bool json, std::ostream* out);

  // Printed at once: a library that crashes leaves the lines of the rules before.
  void Add(const std::string& library, const std::string& rule, const Finding& finding);

  // The count. Throws std::runtime_error where a rule failed.
  void Finish();

 private:
  void PrintLine(const std::string& library, const std::string& rule, const std::string& result,
                 const std::string& seen);

  bool json_;
  std::ostream* out_;
  Json rules_ = Json::array();
  std::array<size_t, 4> counts_ = {};  // per Verdict
};

}  // namespace zelctl
