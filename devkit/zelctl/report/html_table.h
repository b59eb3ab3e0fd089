// SPDX-License-Identifier: Apache-2.0

// Tables of the report.
#pragma once

#include <string>
#include <vector>

#include "devkit/zelctl/report/mode_report.h"

namespace zelctl {

// Cells are markup. The first column names its row.
class HtmlTable {
 public:
  explicit HtmlTable(const std::vector<std::string>& headings);

  void Add(const std::vector<std::string>& cells);

  // It scrolls by itself where the page is too narrow.
  std::string Finish() const;

 private:
  std::string markup_;
};

// All modes, a line each.
std::string OverviewTable(const Report& report);

// Patches with target, shown and difference; with measurements where there are some.
std::string PatchTable(const ModeEvaluation& mode, const std::vector<PatchSet>& sets);

std::string StepsTable(const ModeEvaluation& mode);

std::string MeasuredTable(const MeasuredSummary& measured);

}  // namespace zelctl
