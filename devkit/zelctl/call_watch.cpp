// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/call_watch.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <csignal>
#include <cstdlib>
#include <iostream>
#include <string_view>

#include "devkit/zelctl/errors.h"

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

// The default action follows when it returns.
void TellSignal(int signal) {
  if (g_length > 0) {
    const std::array<char, 2> digits = {static_cast<char>('0' + signal / 10),
                                        static_cast<char>('0' + signal % 10)};
    Say("zelctl: killed by signal ");
    Say({digits.data() + (signal < 10 ? 1 : 0), signal < 10 ? size_t{1} : size_t{2}});
    SayWhile();
  }
  raise(signal);
}

void TellExit() {
  if (g_length == 0) return;
  std::cout.flush();
  Say("zelctl: the process was ended");
  SayWhile();
  _exit(kExitCallFailed);
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
  g_length = length;
}

CallWatch::~CallWatch() { g_length = 0; }

}  // namespace zelctl
