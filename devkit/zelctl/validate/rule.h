// SPDX-License-Identifier: Apache-2.0

// A rule of `validate`, and running a list of them.
#pragma once

#include <unistd.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <exception>
#include <functional>
#include <set>
#include <string>
#include <vector>

#include "devkit/zelctl/validate/finding.h"
#include "devkit/zelctl/validate/rule_process.h"
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

// Runs the rules one after the other, for they build on each other, in a process of
// their own. Where a library ends that process, the rule has failed, and another process
// takes all rules but that one from the start, up to the next that has no result yet.
template <typename Subject>
void RunRules(const std::vector<Rule<Subject>>& rules, const std::string& file,
              const std::string& arg, std::chrono::seconds limit, RuleReport* report) {
  std::set<size_t> fatal;
  size_t next = 0;  // the first rule without a result
  while (next < rules.size()) {
    RuleProcess process([&](RuleChannel* channel) {
      Subject subject(file, arg, channel);
      for (size_t i = 0; i < rules.size(); ++i) {
        if (fatal.count(i) == 0) channel->Found(Judge(rules[i], subject));
      }
      _exit(0);  // the library's end is a matter of rules before
    });
    for (size_t i = 0; i < rules.size(); ++i) {
      if (fatal.count(i) != 0) continue;
      RuleProcess::Outcome outcome = process.Await(limit);
      const bool again = i < next;
      if (outcome.ended) fatal.insert(i);
      if (again && outcome.ended) {
        outcome.finding.seen = "the second time: " + outcome.finding.seen;
      }
      if (!again || outcome.ended) report->Add(Subject::kLibrary, rules[i].name, outcome);
      next = std::max(next, i + 1);
      if (outcome.ended) break;
    }
  }
}

}  // namespace zelctl
