// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/rule_process.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <iostream>
#include <stdexcept>

namespace zelctl {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kSliceMs = 50;                      // between two looks at whether the child lives
constexpr size_t kMostPrinted = 4096;             // of one rule
constexpr size_t kHeader = 2 + sizeof(uint32_t);  // kind, verdict, bytes that follow
constexpr int kCutOff = 125;                      // the child's status where it can't report

// Both ends of a connection: to read from here, and to write to there; or both, both ways.
void Connect(bool both_ways, int* here, int* there) {
  std::array<int, 2> ends = {};
  const int result = both_ways ? socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data())
                               : pipe2(ends.data(), O_CLOEXEC);
  if (result != 0) {
    throw std::runtime_error("can't make a pipe: " + std::string(std::strerror(errno)));
  }
  *here = ends[0];
  *there = ends[1];
}

// A group of its own, that goes when zelctl goes; nothing to read, and nothing that it
// prints gets among zelctl's lines.
void SetUpChild(pid_t parent, int printed) {
  setpgid(0, 0);
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  const int nothing = open("/dev/null", O_RDONLY | O_CLOEXEC);
  dup2(nothing, STDIN_FILENO);
  dup2(printed, STDOUT_FILENO);
  dup2(printed, STDERR_FILENO);
}

// Appends what can be read now. False at the end of the stream.
bool Drain(int fd, std::string* text) {
  std::array<char, 4096> part = {};
  const ssize_t size = read(fd, part.data(), part.size());
  if (size > 0) text->append(part.data(), static_cast<size_t>(size));
  return size > 0 || (size < 0 && errno == EINTR);
}

}  // namespace

void RuleChannel::Found(const Finding& finding) {
  std::fflush(nullptr);  // what the library printed belongs to this rule
  Send(static_cast<char>('0' + static_cast<int>(finding.verdict)), finding.seen);
  char go_on = 0;
  while (read(fd_, &go_on, 1) < 0 && errno == EINTR) continue;
}

void RuleChannel::Send(char kind, const std::string& text) {
  const auto size = static_cast<uint32_t>(text.size());
  std::string frame = {'Z', kind};
  frame.append(reinterpret_cast<const char*>(&size), sizeof size).append(text);
  for (size_t sent = 0; sent < frame.size();) {
    const ssize_t written = write(fd_, frame.data() + sent, frame.size() - sent);
    if (written < 0 && errno != EINTR) _exit(kCutOff);
    sent += static_cast<size_t>(std::max<ssize_t>(written, 0));
  }
}

RuleProcess::RuleProcess(const std::function<void(RuleChannel*)>& rules) {
  int frames = -1;
  int printed = -1;
  Connect(true, &frames_, &frames);
  Connect(false, &printed_, &printed);
  std::cout.flush();
  std::cerr.flush();
  const pid_t parent = getpid();
  child_ = fork();
  if (child_ < 0) {
    throw std::runtime_error("can't make a process: " + std::string(std::strerror(errno)));
  }
  if (child_ == 0) {
    SetUpChild(parent, printed);
    RuleChannel channel(frames);
    rules(&channel);
    _exit(0);
  }
  setpgid(child_, child_);  // whichever of the two comes first
  guard_.emplace(child_);
  close(frames);
  close(printed);
}

RuleProcess::~RuleProcess() {
  kill(-child_, SIGKILL);  // with whatever the library started
  waitpid(child_, nullptr, 0);
  close(frames_);
  close(printed_);
}

RuleProcess::Outcome RuleProcess::Await(std::chrono::seconds limit) {
  Outcome outcome;
  doing_.clear();
  since_ = Clock::now();
  while (!TakeFinding(&outcome)) {
    if (Clock::now() >= since_ + limit) {
      outcome.finding = {Verdict::kFailed,
                         "no answer in " + std::to_string(limit.count()) + " s" + While()};
      outcome.ended = true;
      break;
    }
    if (ReadMore(kSliceMs, &outcome)) continue;
    TakeFinding(&outcome);  // notes what it was doing
    outcome.finding = HowItEnded();
    outcome.ended = true;
    break;
  }
  while (ReadPrinted(&outcome)) continue;  // it was printed before the finding
  if (!outcome.ended) send(frames_, "", 1, MSG_NOSIGNAL);
  return outcome;
}

// False where there is nothing to read now.
bool RuleProcess::ReadPrinted(Outcome* outcome) {
  pollfd stream = {printed_, POLLIN, 0};
  if (poll(&stream, 1, 0) <= 0 || (stream.revents & POLLIN) == 0) return false;
  std::string text;
  const bool more = Drain(printed_, &text);
  const size_t room = kMostPrinted - std::min(kMostPrinted, outcome->printed.size());
  outcome->printed.append(text, 0, room);
  if (text.size() > room && outcome->printed.size() <= kMostPrinted) {
    outcome->printed.append("\n(and more)");
  }
  return more;
}

// False where the child is gone and all that it sent has been read. A process that the
// library started may keep the pipes open, so their end alone doesn't tell.
bool RuleProcess::ReadMore(int timeout_ms, Outcome* outcome) {
  siginfo_t state = {};
  waitid(P_PID, static_cast<id_t>(child_), &state, WEXITED | WNOHANG | WNOWAIT);
  const bool gone = state.si_pid == child_;
  std::array<pollfd, 2> streams = {{{frames_, POLLIN, 0}, {printed_, POLLIN, 0}}};
  const int ready = poll(streams.data(), streams.size(), gone ? 0 : timeout_ms);
  bool more = false;
  if ((streams[0].revents & POLLIN) != 0) more = Drain(frames_, &received_);
  if ((streams[1].revents & POLLIN) != 0) more = ReadPrinted(outcome) || more;
  if (!gone && !more && ready > 0) {  // closed by the library: wait without spinning
    std::array<timespec, 1> pause = {{{0, timeout_ms * 1000000L}}};
    nanosleep(pause.data(), nullptr);
  }
  return more || !gone;
}

// Reads the frames received so far, up to a finding.
bool RuleProcess::TakeFinding(Outcome* outcome) {
  while (received_.size() >= kHeader) {
    uint32_t size = 0;
    std::memcpy(&size, received_.data() + 2, sizeof size);
    if (received_.size() < kHeader + size) return false;
    const char kind = received_[1];
    const std::string text = received_.substr(kHeader, size);
    received_.erase(0, kHeader + size);
    if (kind == 'D') {
      doing_ = text;
      since_ = Clock::now();
      continue;
    }
    outcome->finding = {static_cast<Verdict>(kind - '0'), text};
    return true;
  }
  return false;
}

Finding RuleProcess::HowItEnded() {
  siginfo_t state = {};
  waitid(P_PID, static_cast<id_t>(child_), &state, WEXITED | WNOWAIT);
  if (state.si_code == CLD_EXITED && state.si_status == kCutOff) {
    return {Verdict::kFailed, "closed files of zelctl's" + While()};
  }
  const std::string number = std::to_string(state.si_status);
  const bool exited = state.si_code == CLD_EXITED;
  return {Verdict::kFailed,
          (exited ? "ended the process with status " : "killed by signal ") + number +
              (exited ? "" : " (SIG" + std::string(sigabbrev_np(state.si_status)) + ")") + While()};
}

}  // namespace zelctl
