// SPDX-License-Identifier: Apache-2.0

// The report as an HTML page.
#pragma once

#include <string>

#include "devkit/zelctl/report/mode_report.h"

namespace zelctl {

// One document without anything to fetch.
std::string ReportPage(const Report& report);

}  // namespace zelctl
