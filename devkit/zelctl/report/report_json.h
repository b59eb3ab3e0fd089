// SPDX-License-Identifier: Apache-2.0

// The report's figures as JSON.
#pragma once

#include "devkit/zelctl/json_output.h"
#include "devkit/zelctl/report/mode_report.h"

namespace zelctl {

// docs/report.md describes the members.
Json ReportJson(const Report& report);

// A set's name in JSON.
const char* SetKey(PatchSet set);

}  // namespace zelctl
