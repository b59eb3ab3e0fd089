// SPDX-License-Identifier: Apache-2.0

// Another program, run to its end.
#pragma once

#include <string>
#include <vector>

namespace zelctl {

struct ToolRun {
  bool found = false;  // whether there is such a program
  int status = 0;      // of wait
  std::string out;
  std::string err;
};

// `words` is the program and its arguments, `in` what it reads.
ToolRun RunTool(std::vector<std::string> words, const std::string& in);

}  // namespace zelctl
