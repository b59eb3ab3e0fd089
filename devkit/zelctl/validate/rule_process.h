// SPDX-License-Identifier: Apache-2.0

// A process of its own for the rules of a library: what kills, stops or ends it leaves
// zelctl standing.
#pragma once

#include <sys/types.h>

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "devkit/zelctl/validate/finding.h"
#include "devkit/zelctl/validate/group_guard.h"

namespace zelctl {

// The rules' end of the connection, in the child.
class RuleChannel {
 public:
  explicit RuleChannel(int fd) : fd_(fd) {}

  // What the library is about to be asked, as "calling Init".
  void Doing(const std::string& what) { Send('D', what); }
  // Waits until the finding has arrived, so that what is printed later is the next rule's.
  void Found(const Finding& finding);

 private:
  void Send(char kind, const std::string& text);

  int fd_;
};

class RuleProcess {
 public:
  // Runs `rules` in a child, which ends with them. Call it while the calling process
  // has one thread.
  explicit RuleProcess(const std::function<void(RuleChannel*)>& rules);
  ~RuleProcess();
  RuleProcess(const RuleProcess&) = delete;
  RuleProcess& operator=(const RuleProcess&) = delete;

  struct Outcome {
    Finding finding;
    bool ended = false;   // by the library: no more findings follow
    std::string printed;  // by the library, on either standard stream
  };

  // The next rule's finding. Where the child is gone, or the library takes longer than
  // `limit` for what it is asked, the finding says so.
  Outcome Await(std::chrono::seconds limit);

 private:
  bool ReadMore(int timeout_ms, Outcome* outcome);
  bool ReadPrinted(Outcome* outcome);
  bool TakeFinding(Outcome* outcome);
  Finding HowItEnded();
  std::string While() const { return doing_.empty() ? "" : " while " + doing_; }

  pid_t child_ = -1;
  int frames_ = -1;   // from RuleChannel, and a byte back for each finding
  int printed_ = -1;  // from the child's standard streams
  std::string received_;
  std::string doing_;
  std::chrono::steady_clock::time_point since_;
  std::optional<GroupGuard> guard_;
};

}  // namespace zelctl
