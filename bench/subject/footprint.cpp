// SPDX-License-Identifier: Apache-2.0

// Memory that the plug-in takes, with libraries that take hardly any.

#include <sys/resource.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>

#include "bench/bench_api.h"
#include "bench/subject/answers.h"
#include "bench/subject/session.h"

namespace {

long ResidentKiB() {
  std::ifstream statm("/proc/self/statm");
  long total = 0;
  long resident = 0;
  statm >> total >> resident;
  return resident * (sysconf(_SC_PAGESIZE) / 1024);
}

long Faults() {
  rusage usage = {};
  getrusage(RUSAGE_SELF, &usage);
  return usage.ru_minflt;
}

}  // namespace

void ZelPrintFootprint() {
  TheAnswers() = {.modes = MakeModes(8), .blocks = MakeBlocks()};
  const long before = ResidentKiB();
  Session session;
  std::printf("resident memory that Init adds: %ld KiB\n", ResidentKiB() - before);
  velaricolor::HwConfigOutputParams output;
  for (const char* which : {"first", "second"}) {
    const long faults = Faults();
    session.Run(velaricolor::kVcModeRenderIntent, &output);
    std::printf("page faults of the %s mode switch: %ld\n", which, Faults() - faults);
  }
  output = {};
}
