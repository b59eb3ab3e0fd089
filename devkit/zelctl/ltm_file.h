// SPDX-License-Identifier: Apache-2.0

// The file of --ltm.
#pragma once

#include <string>

#include "pcc/pcc_config.h"

namespace zelctl {

inline constexpr const char* kLtmHelp =
    "JSON file with the local-tone-mapping PCC matrix:\n"
    "{\"enable\": true, \"r\": [...], \"g\": [...], \"b\": [...]}; each row\n"
    "is 4 numbers (offset in 1/255, R, G, B) or all 11 terms;\n"
    "enable may be left out";

// Throws UsageError, with the file and the place in it. Read as strictly as a
// panel description.
velaricolor::PccPostBlendConfig ReadLtmFile(const std::string& path);

}  // namespace zelctl
