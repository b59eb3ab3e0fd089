// SPDX-License-Identifier: Apache-2.0

// Says which call of a library has not answered for long, so that nobody waits for nothing.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>
#include <string>

namespace zelctl {

class SlowCallNote {
 public:
  static constexpr std::chrono::seconds kPatience{10};

  // The one of this process. Its thread waits until the process ends.
  static SlowCallNote& Of();

  // A call of a library begins, which `doing` tells, and ends.
  void Begin(const std::string& doing);
  void End();

 private:
  SlowCallNote();
  [[noreturn]] void Watch();

  std::mutex mutex_;
  std::condition_variable changed_;
  std::string doing_;  // empty between calls
  std::chrono::steady_clock::time_point due_;
};

}  // namespace zelctl
