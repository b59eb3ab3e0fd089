// SPDX-License-Identifier: Apache-2.0

// What ends a run, and the exit status that it gives.
#pragma once

#include <stdexcept>
#include <string>

namespace zelctl {

inline constexpr int kExitCallFailed = 1;  // the plug-in refused a call, or output was lost
inline constexpr int kExitUsage = 2;       // a wrong mode, file, number or option

// "-22 (EINVAL)"; a library's own code that is no errno value stays a number.
std::string CodeText(int code);

// A path as complaints show it: nothing at all would not be seen.
std::string NameText(const std::string& path);

// Names and labels of libraries, whatever they hold: a line stays a line.
std::string OneLine(std::string text);

// The user's input can't be used. One line, without a final full stop.
class UsageError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// What failed stands in the output already; this sums it up.
class ReportedError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

// A call of the plug-in answered a non-zero code.
class CallError : public std::runtime_error {
 public:
  CallError(const std::string& call, int code);
};

}  // namespace zelctl
