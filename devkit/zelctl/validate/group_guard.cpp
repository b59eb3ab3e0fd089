// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/validate/group_guard.h"

#include <array>
#include <atomic>
#include <csignal>

namespace zelctl {
namespace {

constexpr std::array<int, 5> kEnding = {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGPIPE};

std::atomic<pid_t> guarded = 0;
static_assert(std::atomic<pid_t>::is_always_lock_free, "the handler reads it");

// Its own action is the default one again by now, and follows when it returns.
void KillGroup(int signal) {
  kill(-guarded, SIGKILL);
  raise(signal);
}

void Handle(void (*handler)(int)) {
  for (const int signal : kEnding) {
    struct sigaction before = {};
    sigaction(signal, nullptr, &before);
    if (before.sa_handler == SIG_IGN) continue;  // under nohup, say
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = static_cast<int>(SA_RESETHAND);
    sigaction(signal, &action, nullptr);
  }
}

}  // namespace

GroupGuard::GroupGuard(pid_t group) {
  guarded = group;
  Handle(KillGroup);
}

GroupGuard::~GroupGuard() { Handle(SIG_DFL); }

}  // namespace zelctl
