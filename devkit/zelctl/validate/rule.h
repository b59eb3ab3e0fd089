// A rule of `validate`, and running a list of them.
#pragma once

#include <array>
#include <exception>
#include <functional>
#include <string>
#include <vector>

#include "devkit/zelctl/validate/finding.h"
#include "devkit/zelctl/validate/rule_report.h"

namespace zelctl {

// How far a library has come. A rule that needs more is skipped.
enum class Stage { kNothing, kOpened, kExported, kMade, kStarted, kModes };

template <typename Subject>
struct Rule {
  std::string name;
  Stage needs;
  std::function<Finding(Subject&)> check;
};

template <typename Subject>
Finding Judge(const Rule<Subject>& rule, Subject& subject) {
  static constexpr std::array<const char*, 6> kMissing = {
      "", "not opened", "no factory", "no object", "not initialised", "no modes"};
  if (subject.stage < rule.needs) {
    return {Verdict::kSkipped, kMissing[static_cast<size_t>(subject.stage) + 1]};
  }
  try {
    return rule.check(subject);
  } catch (const std::exception& e) {
    return {Verdict::kFailed, "an exception left a call: " + std::string(e.what())};
  } catch (...) {
    return {Verdict::kFailed, "an exception left a call"};
  }
}

template <typename Subject>
void RunRules(const std::vector<Rule<Subject>>& rules, Subject* subject, RuleReport* report) {
  for (const auto& rule : rules) report->Add(Subject::kLibrary, rule.name, Judge(rule, *subject));
}

}  // namespace zelctl
