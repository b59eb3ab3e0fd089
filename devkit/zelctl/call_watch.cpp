// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/call_watch.h"

#include <sys/syscall.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/slow_call_note.h"

namespace zelctl {
namespace {

// Read by a signal's handler, so without memory of its own. Empty between calls.
std::array<char, 256> g_doing = {};
std::atomic<size_t> g_length = 0;

void Say(std::string_view text) {
  while (!text.empty()) {
    const ssize_t written = write(STDERR_FILENO, text.data(), text.size());
    if (written <= 0) return;
    text.remove_prefix(static_cast<size_t>(written));
  }
}

void SayWhile() {
  Say(" while ");
  Say({g_doing.data(), g_length});
  Say("; zelctl validate says more\n");
}

// After a fork the child's end is its own.
std::atomic<pid_t> g_process = 0;

bool IsCalling() { return g_length > 0 && getpid() == g_process; }

// The default action follows when it returns.
void TellSignal(int signal) {
  if (IsCalling()) {
    const std::array<char, 2> digits = {static_cast<char>('0' + signal / 10),
                                        static_cast<char>('0' + signal % 10)};
    Say("zelctl: killed by signal ");
    Say({digits.data() + (signal < 10 ? 1 : 0), signal < 10 ? size_t{1} : size_t{2}});
    SayWhile();
  }
  raise(signal);
}

[[noreturn]] void EndAtOnce(int status) {
  for (;;) syscall(SYS_exit_group, status);
}

void SayEnded() {
  Say("zelctl: the process was ended");
  SayWhile();
}

void TellExit() {
  if (!IsCalling()) return;
  std::cout.flush();
  SayEnded();
  EndAtOnce(kExitCallFailed);
}

// Handlers that are there already, a sanitizer's say, tell more.
bool Install() {
  for (const int signal : {SIGSEGV, SIGBUS, SIGILL, SIGFPE, SIGABRT, SIGINT, SIGTERM}) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler != SIG_DFL) continue;
    struct sigaction action = {};
    action.sa_handler = TellSignal;
    action.sa_flags = static_cast<int>(SA_RESETHAND | SA_ONSTACK);
    sigaction(signal, &action, nullptr);
  }
  return std::atexit(TellExit) == 0 && std::at_quick_exit(TellExit) == 0;
}

// For the handler, where the thread's own stack is what has run out.
void GiveTheThreadAStack() {
  static thread_local std::array<char, 16384> stack;
  stack_t before = {};
  sigaltstack(nullptr, &before);
  if ((before.ss_flags & SS_DISABLE) == 0) return;
  const stack_t own = {.ss_sp = stack.data(), .ss_flags = 0, .ss_size = stack.size()};
  sigaltstack(&own, nullptr);
}

}  // namespace

CallWatch::CallWatch(const std::string& doing) {
  static const bool installed = Install();
  if (!installed) return;
  GiveTheThreadAStack();
  const size_t length = std::min(doing.size(), g_doing.size());
  std::copy_n(doing.begin(), length, g_doing.begin());
  g_process = getpid();
  g_length = length;
  SlowCallNote::Of().Begin(doing);
}

CallWatch::~CallWatch() {
  SlowCallNote::Of().End();
  g_length = 0;
}

}  // namespace zelctl

// What a library calls that ends the process without its exit functions. Under a name of its
// own, for the system's headers declare it otherwise.
extern "C" __attribute__((visibility("default"), noreturn)) void EndProcess(int status) __asm__(
    "_exit");
extern "C" __attribute__((visibility("default"), noreturn)) void EndProcessToo(int status) __asm__(
    "_Exit");

extern "C" void EndProcess(int status) {
  if (!zelctl::IsCalling()) zelctl::EndAtOnce(status);
  zelctl::SayEnded();
  zelctl::EndAtOnce(zelctl::kExitCallFailed);
}

extern "C" void EndProcessToo(int status) { EndProcess(status); }
