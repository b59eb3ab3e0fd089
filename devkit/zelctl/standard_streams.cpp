// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/standard_streams.h"

#include <fcntl.h>
#include <unistd.h>

#include <initializer_list>

namespace zelctl {

void OccupyStandardStreams() {
  for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
    if (fcntl(stream, F_GETFD) != -1) continue;
    // The lowest free number, which is this one.
    open("/dev/null", (stream == STDIN_FILENO ? O_WRONLY : O_RDONLY) | O_CLOEXEC);
  }
}

}  // namespace zelctl
