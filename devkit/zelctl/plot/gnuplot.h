// SPDX-License-Identifier: Apache-2.0

// gnuplot as a child process, and the text that it reads.
#pragma once

#include <string>

namespace zelctl {

// What gnuplot writes to its standard output for `script`. Throws UsageError
// where it can't be started, std::runtime_error where it fails.
std::string RunGnuplot(const std::string& script);

// `text` as a string of gnuplot's in which nothing is expanded.
std::string Quoted(const std::string& text);

}  // namespace zelctl
