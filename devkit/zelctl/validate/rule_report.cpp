// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/rule_report.h"

#include <algorithm>
#include <iostream>
#include <sstream>
#include <stdexcept>

#include "devkit/zelctl/errors.h"

namespace zelctl {
namespace {

// In the order of Verdict.
constexpr std::array<const char*, 4> kResults = {"passed", "FAILED", "warning", "skipped"};
constexpr std::array<const char*, 4> kCounted = {"passed", "failed", "warnings", "skipped"};

// Lines are printed before the next is known, so widths can't follow the cells:
// these are the longest library's, rule's and result's.
constexpr std::array<size_t, 3> kWidths = {9, 22, 7};

std::string Padded(std::string text, size_t width) {
  text.resize(std::max(width, text.size()), ' ');
  return text;
}

// On the other stream, set off from the lines of rules.
void PrintLibrarysOwn(const std::string& printed) {
  std::istringstream lines(printed);
  for (std::string line; std::getline(lines, line);) {
    std::cerr << "    the library: " << OneLine(line) << '\n';
  }
}

}  // namespace

RuleReport::RuleReport(bool json, bool all_printed, std::ostream* out)
    : json_(json), all_printed_(all_printed), out_(out) {
  if (!json_) PrintLine("LIBRARY", "RULE", "RESULT", "SEEN");
}

void RuleReport::PrintLine(const std::string& library, const std::string& rule,
                           const std::string& result, const std::string& seen) {
  *out_ << Padded(library, kWidths[0]) << "  " << Padded(rule, kWidths[1]) << "  "
        << Padded(result, kWidths[2]) << "  " << seen << '\n'
        << std::flush;
}

void RuleReport::PrintSkipped() {
  const auto& [library, seen, rules] = skipped_;
  if (rules.empty()) return;
  const std::string rule = rules.size() == 1 ? rules[0] : std::to_string(rules.size()) + " rules";
  PrintLine(library, rule, kResults[static_cast<size_t>(Verdict::kSkipped)], seen);
  skipped_ = {};
}

void RuleReport::Add(const std::string& library, const std::string& rule,
                     const RuleProcess::Outcome& outcome) {
  const Finding& finding = outcome.finding;
  const auto verdict = static_cast<size_t>(finding.verdict);
  ++counts_[verdict];
  if (json_) {
    rules_.push_back({{"library", library},
                      {"rule", rule},
                      {"result", kResults[verdict]},
                      {"seen", finding.seen}});
  } else if (finding.verdict == Verdict::kSkipped) {
    if (skipped_.library != library || skipped_.seen != finding.seen) PrintSkipped();
    skipped_.library = library;
    skipped_.seen = finding.seen;
    skipped_.rules.push_back(rule);
  } else {
    PrintSkipped();
    PrintLine(library, rule, kResults[verdict], OneLine(finding.seen));
  }
  if (finding.verdict == Verdict::kFailed || all_printed_) PrintLibrarysOwn(outcome.printed);
}

void RuleReport::Finish() {
  if (!json_) PrintSkipped();
  Json counts;
  std::string line;
  for (size_t i = 0; i < counts_.size(); ++i) {
    counts[kCounted[i]] = counts_[i];
    line += (i == 0 ? "" : ", ") + std::to_string(counts_[i]) + " " + kCounted[i];
  }
  if (json_) {
    PrintJson({{"rules", rules_}, {"counts", counts}}, *out_);
  } else {
    *out_ << line << '\n';
  }
  if (!out_->flush()) throw std::runtime_error("can't write to standard output");
  const size_t failed = counts_[static_cast<size_t>(Verdict::kFailed)];
  if (failed > 0) {
    throw ReportedError(std::to_string(failed) + (failed == 1 ? " rule" : " rules") + " failed");
  }
}

}  // namespace zelctl
