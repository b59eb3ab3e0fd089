// SPDX-License-Identifier: Apache-2.0

// Standard input, output and error.
#pragma once

namespace zelctl {

// Opens those of the three that the caller closed, so that no other file takes their
// numbers. Reading and writing fail on them, as they did. Before anything is opened.
void OccupyStandardStreams();

}  // namespace zelctl
