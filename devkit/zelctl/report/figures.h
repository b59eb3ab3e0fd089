// SPDX-License-Identifier: Apache-2.0

// The figures of the report: each an element with a caption that names units and sources.
#pragma once

#include <string>

#include "devkit/zelctl/report/mode_report.h"

namespace zelctl {

// `drawing` with a title, and below it the sources.
std::string Figure(const std::string& title, const std::string& drawing,
                   const std::string& sources);

// CIEDE2000 of all modes.
std::string OverviewFigure(const Report& report);

enum class Diagram { kXy, kUniform };
std::string GamutFigure(const ModeEvaluation& mode, Diagram diagram);

// The chart, target beside shown.
std::string CheckerFigure(const ModeEvaluation& mode);

std::string GreysFigure(const ModeEvaluation& mode);

// Luminance over the codes from 0 to `last`.
std::string ToneFigure(const Report& report, const ModeEvaluation& mode, int last);

// Where white and primaries go, and how bright they are.
std::string StepsDiagram(const ModeEvaluation& mode);
std::string StepsLuminance(const ModeEvaluation& mode);

// Measurement against target and prediction, patch by patch. Needs measurements.
std::string MeasuredFigure(const ModeEvaluation& mode, PatchSet set);

// The colour of an appearance as CSS has it, for a screen that shows sRGB; what such a
// screen can't show is clipped.
std::string CssColor(const ModeEvaluation& mode, const Appearance& seen);

inline constexpr const char* kDifferenceSource =
    "ΔE₀₀: CIEDE2000, ISO/CIE 11664-6; L*a*b*: CIE 15:2004, 8.2.1.1";

}  // namespace zelctl
