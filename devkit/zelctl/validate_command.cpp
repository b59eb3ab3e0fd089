#include <cstdlib>
#include <filesystem>
#include <iostream>

#include "devkit/zelctl/commands.h"
#include "devkit/zelctl/input.h"
#include "devkit/zelctl/validate/algo_rules.h"
#include "devkit/zelctl/validate/parser_rules.h"

namespace zelctl {
namespace {

// Where the loader finds a library that the plug-in opens by name: in the
// environment's folders, beside the plug-in, in its usual places.
std::string FindByName(const std::string& name, const std::string& plugin) {
  const char* environment = std::getenv("LD_LIBRARY_PATH");
  auto folders = Split(environment == nullptr ? "" : environment, ":;");
  folders.push_back(std::filesystem::path(plugin).parent_path());
  for (const std::filesystem::path folder : folders) {
    std::error_code ignored;
    if (exists(folder / name, ignored)) return absolute(folder / name);
  }
  return name;
}

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
  const auto& [parser, algo, arg, timeout] = arguments;
  if (parser) RequireReadable(*parser, "parser");
  if (algo) RequireReadable(*algo, "algorithm library");
  if (!arg) RequireReadable(globals.session.panel, "panel");
  const std::string text = arg.value_or(globals.session.panel);

  RuleReport report(globals.json, globals.session.log_level.has_value(), &std::cout);
  const std::chrono::seconds limit(timeout);
  if (parser || !algo) Validate(globals, parser, text, limit, ParserRules(), &report);
  if (algo || !parser) Validate(globals, algo, text, limit, AlgoRules(), &report);
  report.Finish();
}

}  // namespace zelctl
