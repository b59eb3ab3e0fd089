// SPDX-License-Identifier: Apache-2.0

// How far a long piece of work has come, for whoever waits at a terminal.
#pragma once

#include <chrono>
#include <string>

namespace zelctl {

// A line on standard error that is rewritten and wiped at the end. Nothing is shown where
// that is no terminal, nor in the first second.
class Progress {
 public:
  explicit Progress(std::string what);
  ~Progress();
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  // `share` goes from 0 to 1.
  void Show(double share);

  // What is done where no share is known.
  void Show(const std::string& step);

 private:
  bool IsWanted() const { return on_terminal_ && Clock::now() >= next_; }

  using Clock = std::chrono::steady_clock;

  const std::string what_;
  const bool on_terminal_;
  Clock::time_point next_;
  bool shown_ = false;
};

}  // namespace zelctl
