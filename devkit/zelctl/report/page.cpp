// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/page.h"

#include <sstream>

#include "devkit/zelctl/markup_text.h"
#include "devkit/zelctl/report/figures.h"
#include "devkit/zelctl/report/html_table.h"
#include "devkit/zelctl/report/page_style.h"
#include "devkit/zelctl/report/shown_number.h"
#include "devkit/zelctl/report/target_text.h"

namespace zelctl {
namespace {

constexpr int kDarkEnd = 32;

std::string Fact(const std::string& name, const std::string& value) {
  return "<div><dt>" + name + "</dt><dd>" + Escaped(value) + "</dd></div>\n";
}

void WriteHeader(const Report& report, std::ostream& out) {
  const tarn::reference::Panel& panel = report.panel;
  const std::string name = Escaped(panel.name);
  out << "<!doctype html>\n<html lang=\"en\"><head><meta charset=\"utf-8\">\n"
      << "<meta name=\"viewport\" content=\"width=device-width, initial-scale=1\">\n"
      << "<title>Colours of " << name << "</title>\n<style>" << kPageStyle
      << "</style></head>\n<body><main>\n<h1>Colours of " << name << "</h1>\n<dl>\n"
      << Fact("panel file", report.panel_file)
      << Fact("peak luminance", Significant(panel.luminance.peak) + " cd/m²")
      << Fact("black", Significant(panel.luminance.black) + " cd/m²")
      << Fact("white", WhiteText(panel.primaries.white))
      << Fact("primaries (x, y)", PrimariesText(panel.primaries))
      << Fact("transfer", TransferText(panel.transfer))
      << Fact("depth", std::to_string(panel.bit_depth) + " bits") << "</dl>\n";
}

void WriteList(const char* title, const std::vector<std::string>& lines, std::ostream& out) {
  if (lines.empty()) return;
  out << "<div class=\"problems\"><b>" << title << "</b><ul>\n";
  for (const std::string& line : lines) out << "<li>" << Escaped(line) << "</li>\n";
  out << "</ul></div>\n";
}

void WriteOverview(const Report& report, std::ostream& out) {
  out << "<h2>All modes at a glance</h2>\n<div class=\"figures\">" << OverviewFigure(report)
      << "<div class=\"wide\"><p>Each mode was rendered by the plug-in. Codes of 8 bits go through "
         "its blocks; "
         "the output is rounded to "
      << kOutputBits
      << " bits and shown as the panel's description says. The target is what the mode's "
         "standards ask for at the same codes.</p><p class=\"note\">ΔE₀₀ (CIEDE2000) of about 1 "
         "is just noticeable side by side. Means and maxima are over the colours that the panel "
         "can show; the others, marked ⊘, are counted apart, with their own mean and maximum. "
         "L* = 100 is the mode's white: full signal, for HDR diffuse white (203 cd/m² of PQ, 75 % "
         "of HLG: ITU-R BT.2408, table 1). \"Largest tint\": between the output channels of a "
         "neutral, over all 256 codes; there is none to state where a mode keeps a white of its "
         "own.</p></div></div>\n"
      << OverviewTable(report);
}

void WriteMeasured(const MeasuredSummary& measured, const ModeEvaluation& mode, std::ostream& out) {
  out << "<h3>Prediction and measurement</h3>\n<p>" << Escaped(measured.file) << ": "
      << measured.found << " of " << measured.found + measured.missing
      << " patches were measured. Full white: predicted " << Significant(measured.predicted_white)
      << " cd/m², measured "
      << (measured.absolute ? Significant(measured.measured_white) + " cd/m²"
                            : std::string("relative only, and taken for the same"))
      << ". \"Equal white\": all measurements scaled to the predicted luminance of full "
         "white.</p>\n"
      << MeasuredTable(measured) << "<div class=\"figures\">"
      << MeasuredFigure(mode, PatchSet::kColorChecker) << MeasuredFigure(mode, PatchSet::kGreys)
      << "</div>\n";
}

void WriteSteps(const ModeEvaluation& mode, std::ostream& out) {
  if (mode.steps.size() < 2) return;
  out << "<h3>Colour steps</h3>\n<div class=\"figures\">" << StepsDiagram(mode)
      << StepsLuminance(mode) << "</div>\n"
      << StepsTable(mode);
}

void WriteWhite(const Report& report, const ModeEvaluation& mode, std::ostream& out) {
  const PatchResult& white = *InSet(mode, PatchSet::kWhite).front();
  const auto target = tarn::color::ToChromaticity(white.target.xyz);
  const auto shown = tarn::color::ToChromaticity(white.shown.xyz);
  out << "<dl>\n"
      << Fact("target", TargetText(report.panel, mode.target))
      << Fact("coverage of the target", Fixed(100 * mode.coverage.xy, 1) + " % in xy, " +
                                            Fixed(100 * mode.coverage.uniform, 1) + " % in u′v′")
      << Fact("white, target", Significant(white.target.xyz[1]) + " cd/m², " + Fixed(target.x, 4) +
                                   ", " + Fixed(target.y, 4))
      << Fact("white, shown", Significant(white.shown.xyz[1]) + " cd/m², " + Fixed(shown.x, 4) +
                                  ", " + Fixed(shown.y, 4))
      << Fact("error of white", "ΔE₀₀ " + Fixed(white.difference, 2) + ", Δu′v′ " +
                                    Fixed(UniformDistance(target, shown), 4))
      << "</dl>\n";
}

void WriteMode(const Report& report, const ModeEvaluation& mode, std::ostream& out) {
  out << "<section id=\"mode-" << mode.index << "\"><h2>" << Escaped(mode.label)
      << " <span class=\"note\">(" << Escaped(mode.ids) << ")</span></h2>\n";
  WriteWhite(report, mode, out);
  out << "<div class=\"figures\">" << CheckerFigure(mode) << GreysFigure(mode)
      << ToneFigure(report, mode, static_cast<int>(kMaxContentCode))
      << ToneFigure(report, mode, kDarkEnd) << GamutFigure(mode, Diagram::kXy)
      << GamutFigure(mode, Diagram::kUniform) << "</div>\n";
  out << "<h3>Primaries, secondaries and white</h3>\n"
      << PatchTable(mode, {PatchSet::kPrimaries, PatchSet::kWhite});
  WriteSteps(mode, out);
  if (report.measured) WriteMeasured(*report.measured, mode, out);
  out << "<details><summary>Figures of the 24 patches and the 33 greys</summary>\n"
      << PatchTable(mode, {PatchSet::kColorChecker, PatchSet::kGreys}) << "</details></section>\n";
}

}  // namespace

std::string ReportPage(const Report& report) {
  std::ostringstream out;
  WriteHeader(report, out);
  WriteList("A host would not get this whole:", report.problems, out);
  WriteList("What was done to the panel's measurements:", report.panel.notes, out);
  WriteOverview(report, out);
  for (const ModeEvaluation& mode : report.modes) WriteMode(report, mode, out);
  out << "</main></body></html>\n";
  return out.str();
}

}  // namespace zelctl
