// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/progress.h"

#include <unistd.h>

#include <cstdio>
#include <utility>

namespace zelctl {

Progress::Progress(std::string what)
    : what_(std::move(what)),
      on_terminal_(isatty(STDERR_FILENO) != 0),
      next_(Clock::now() + std::chrono::seconds(1)) {}

Progress::~Progress() {
  if (shown_) std::fputs("\r\033[K", stderr);
}

void Progress::Show(double share) {
  if (!IsWanted()) return;
  std::fprintf(stderr, "\r%s: %.0f %%", what_.c_str(), 100 * share);
  next_ = Clock::now() + std::chrono::milliseconds(100);
  shown_ = true;
}

void Progress::Show(const std::string& step) {
  if (!shown_ && !IsWanted()) return;
  std::fprintf(stderr, "\r\033[K%s: %s", what_.c_str(), step.c_str());
  shown_ = true;
}

}  // namespace zelctl
