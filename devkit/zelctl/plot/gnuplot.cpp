// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/plot/gnuplot.h"

#include <stdexcept>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/plot/tool.h"

namespace zelctl {
namespace {

// gnuplot repeats the line of the script, and marks the place, before it complains.
std::string LastLine(std::string text) {
  text.erase(text.find_last_not_of(" \n") + 1);
  const size_t break_before = text.rfind('\n');
  return break_before == std::string::npos ? text : text.substr(break_before + 1);
}

}  // namespace

std::string RunGnuplot(const std::string& script) {
  // -d: without the user's start-up files.
  const ToolRun run = RunTool({"gnuplot", "-d"}, script);
  if (!run.found) throw UsageError("can't run gnuplot, of the package gnuplot-nox");
  if (run.status != 0 || run.out.empty()) {
    const std::string said = LastLine(run.err);
    throw std::runtime_error("gnuplot failed: " + (said.empty() ? "it drew nothing" : said));
  }
  return run.out;
}

std::string Quoted(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') quoted += c;
    const bool control = static_cast<unsigned char>(c) < ' ' || c == '\x7f';
    quoted += control ? ' ' : c;
  }
  return quoted + "'";
}

}  // namespace zelctl
