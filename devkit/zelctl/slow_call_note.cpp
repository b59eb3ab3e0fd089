// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/slow_call_note.h"

#include <csignal>
#include <iostream>
#include <thread>

namespace zelctl {

SlowCallNote& SlowCallNote::Of() {
  static auto* const note = new SlowCallNote;  // the thread may outlive every static object
  return *note;
}

SlowCallNote::SlowCallNote() {
  // Signals are for the threads that were there.
  sigset_t all;
  sigset_t before;
  sigfillset(&all);
  pthread_sigmask(SIG_SETMASK, &all, &before);
  std::thread([this] { Watch(); }).detach();
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
}

void SlowCallNote::Begin(const std::string& doing) {
  const std::scoped_lock lock(mutex_);
  doing_ = doing;
  due_ = std::chrono::steady_clock::now() + kPatience;
  changed_.notify_one();
}

void SlowCallNote::End() {
  const std::scoped_lock lock(mutex_);
  doing_.clear();
}

void SlowCallNote::Watch() {
  std::unique_lock lock(mutex_);
  for (;;) {
    changed_.wait(lock, [this] { return !doing_.empty(); });
    changed_.wait_until(lock, due_);
    if (doing_.empty() || std::chrono::steady_clock::now() < due_) continue;
    std::cerr << "zelctl: no answer for " << kPatience.count() << " s while " << doing_
              << "; waiting on\n";
    doing_.clear();  // once for each call
  }
}

}  // namespace zelctl
