// SPDX-License-Identifier: Apache-2.0
#include <filesystem>
#include <iostream>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/run_time_libraries.h"
#include "devkit/zelctl/validate/algo_rules.h"
#include "devkit/zelctl/validate/parser_rules.h"

namespace zelctl {
namespace {

template <typename Subject>
void Validate(const GlobalOptions& globals, const std::optional<std::string>& path,
              const std::string& arg, std::chrono::seconds limit,
              const std::vector<Rule<Subject>>& rules, RuleReport* report) {
  // Absolute: the loader searches for a bare file name.
  const std::string file = path ? std::filesystem::absolute(*path).string()
                                : FindByName(Subject::kFile, globals.session.plugin);
  RunRules(rules, file, arg, limit, report);
}

}  // namespace

void RunValidate(const GlobalOptions& globals, const ValidateArguments& arguments) {
  const auto& [parser, algo] = globals.session.libraries;
  if (parser) RequireLibrary(*parser, "parser");
  if (algo) RequireLibrary(*algo, "algorithm library");
  const std::string text = InitText(globals.session);

  RuleReport report(globals.json, globals.session.log_level.has_value(), &std::cout);
  const std::chrono::seconds limit(arguments.timeout);
  if (parser || !algo) Validate(globals, parser, text, limit, ParserRules(), &report);
  if (algo || !parser) Validate(globals, algo, text, limit, AlgoRules(), &report);
  report.Finish();
}

}  // namespace zelctl
