// SPDX-License-Identifier: Apache-2.0

// What the user typed.
#pragma once

namespace zelctl {

// Runs the subcommand that the arguments name, and returns the exit status of a
// success. Throws UsageError for arguments that can't be understood, and what the
// subcommand throws.
int RunCommandLine(int argc, char** argv);

}  // namespace zelctl
