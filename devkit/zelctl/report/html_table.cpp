// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/html_table.h"

#include <array>

#include "devkit/colorimetry/ciede2000.h"
#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/target_text.h"

namespace zelctl {
namespace {

std::string Percent(double share) { return Fixed(100 * share, 1) + " %"; }

// "0.15 / 0.34"
std::string MeanAndMax(const Differences& set) {
  if (set.count == 0) return "–";
  return Fixed(set.mean, 2) + " / " + Fixed(set.max, 2);
}

// With what the panel's own depth allows, and what it can't show.
std::string SummaryCell(const SetSummary& summary, uint32_t panel_bits) {
  std::string cell = MeanAndMax(summary.reachable);
  if (panel_bits != kOutputBits && summary.reachable.count > 0) {
    cell += "<br><span class=\"note\">at " + std::to_string(panel_bits) + " bits " +
            MeanAndMax(summary.at_panel_depth) + "</span>";
  }
  if (summary.unreachable.count > 0) {
    cell += "<br><span class=\"mark\">⊘ " + std::to_string(summary.unreachable.count) + ": " +
            MeanAndMax(summary.unreachable) + "</span>";
  }
  return cell;
}

std::string Swatch(const ModeEvaluation& mode, const Appearance& seen) {
  return "<i style=\"background:" + CssColor(mode, seen) + "\"></i>";
}

// Luminance in cd/m2 and chromaticity.
std::string Light(const ModeEvaluation& mode, const Appearance& seen) {
  const auto xy = tarn::color::ToChromaticity(seen.xyz);
  return Swatch(mode, seen) + Significant(seen.xyz[1]) + "; " + Fixed(xy.x, 4) + ", " +
         Fixed(xy.y, 4);
}

template <typename Codes>
std::string CodeText(const Codes& codes) {
  return std::to_string(codes[0]) + " " + std::to_string(codes[1]) + " " + std::to_string(codes[2]);
}

std::string Remark(const PatchResult& result) {
  std::string text = result.reachable ? "" : "<b class=\"mark\">⊘ out of gamut</b>";
  if (result.patch.clipped) text += " <b class=\"mark\">clipped by the content's primaries</b>";
  return text;
}

std::string SetName(PatchSet set) {
  switch (set) {
    case PatchSet::kColorChecker:
      return "ColorChecker";
    case PatchSet::kGreys:
      return "greys";
    case PatchSet::kPrimaries:
      return "primaries and secondaries";
    case PatchSet::kWhite:
      break;
  }
  return "white";
}

}  // namespace

HtmlTable::HtmlTable(const std::vector<std::string>& headings) {
  markup_ = "<div class=\"scroll\" tabindex=\"0\"><table><thead><tr>";
  for (const std::string& heading : headings) markup_ += "<th scope=\"col\">" + heading + "</th>";
  markup_ += "</tr></thead><tbody>\n";
}

void HtmlTable::Add(const std::vector<std::string>& cells) {
  markup_ += "<tr><th scope=\"row\">" + cells[0] + "</th>";
  for (size_t i = 1; i < cells.size(); ++i) markup_ += "<td>" + cells[i] + "</td>";
  markup_ += "</tr>\n";
}

std::string HtmlTable::Finish() const { return markup_ + "</tbody></table></div>\n"; }

std::string OverviewTable(const Report& report) {
  HtmlTable table({"mode", "24 patches: ΔE₀₀ mean / max", "33 greys", "primaries and secondaries",
                   "white", "largest tint", "covers, xy / u′v′", "target"});
  for (const ModeEvaluation& mode : report.modes) {
    const PatchResult& white = *InSet(mode, PatchSet::kWhite).front();
    const auto cell = [&](PatchSet set) {
      return SummaryCell(mode.summaries[static_cast<size_t>(set)], report.panel.bit_depth);
    };
    const std::string target = Escaped(TargetText(report.panel, mode.target));
    table.Add(
        {"<a href=\"#mode-" + std::to_string(mode.index) + "\">" + Escaped(mode.label) + "</a>",
         cell(PatchSet::kColorChecker), cell(PatchSet::kGreys), cell(PatchSet::kPrimaries),
         Fixed(white.difference, 2) + (white.reachable ? "" : " ⊘"),
         mode.neutral_spread ? std::to_string(*mode.neutral_spread) : "–",
         Percent(mode.coverage.xy) + " / " + Percent(mode.coverage.uniform),
         "<span class=\"wrap\">" + target + "</span>"});
  }
  return table.Finish();
}

std::string PatchTable(const ModeEvaluation& mode, const std::vector<PatchSet>& sets) {
  bool measured = false;
  for (const PatchResult& result : mode.patches) measured = measured || result.measured.has_value();
  std::vector<std::string> headings = {
      "patch", "content code", "output code", "target: cd/m²; x, y", "shown: cd/m²; x, y", "ΔE₀₀"};
  if (measured) {
    headings.insert(headings.end(),
                    {"measured: cd/m²; x, y", "ΔE₀₀ from target", "ΔE₀₀ from prediction"});
  }
  headings.emplace_back("");
  HtmlTable table(headings);
  for (const PatchSet set : sets) {
    for (const PatchResult* result : InSet(mode, set)) {
      std::vector<std::string> cells = {Escaped(result->patch.name), CodeText(result->patch.code),
                                        CodeText(result->drive),     Light(mode, result->target),
                                        Light(mode, result->shown),  Fixed(result->difference, 2)};
      if (measured && result->measured) {
        cells.insert(cells.end(), {Light(mode, *result->measured),
                                   Fixed(Ciede2000(result->measured->lab, result->target.lab), 2),
                                   Fixed(Ciede2000(result->measured->lab, result->shown.lab), 2)});
      } else if (measured) {
        cells.insert(cells.end(), {"–", "–", "–"});
      }
      cells.push_back(Remark(*result));
      table.Add(cells);
    }
  }
  return table.Finish();
}

std::string StepsTable(const ModeEvaluation& mode) {
  constexpr std::array<const char*, 4> kColors = {"white", "red", "green", "blue"};
  std::vector<std::string> headings = {"step"};
  for (const char* color : kColors) {
    headings.push_back(std::string(color) + ": cd/m²; x, y");
    headings.emplace_back("ΔE₀₀ from the mode");
  }
  HtmlTable table(headings);
  for (const StepResult& step : mode.steps) {
    std::vector<std::string> cells = {Escaped(step.label)};
    for (size_t i = 0; i < kColors.size(); ++i) {
      cells.push_back(Light(mode, step.colors[i]));
      cells.push_back(Fixed(step.difference_from_mode[i], 2));
    }
    table.Add(cells);
  }
  return table.Finish();
}

std::string MeasuredTable(const MeasuredSummary& measured) {
  HtmlTable table({"measured", "patches", "ΔE₀₀ from the target, mean / max", "from the prediction",
                   "from the target, equal white", "from the prediction, equal white"});
  for (const MeasuredSet& set : measured.sets) {
    table.Add({SetName(set.set), std::to_string(set.from_target.count), MeanAndMax(set.from_target),
               MeanAndMax(set.from_prediction), MeanAndMax(set.from_target_scaled),
               MeanAndMax(set.from_prediction_scaled)});
  }
  return table.Finish();
}

}  // namespace zelctl
