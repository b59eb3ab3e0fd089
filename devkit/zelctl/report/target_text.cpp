// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/report/target_text.h"

#include <iomanip>
#include <sstream>

namespace zelctl {
namespace {

using tarn::color::Chromaticity;
using tarn::color::Curve;
using tarn::color::Primaries;
using tarn::color::TransferFunction;

std::string Text(const Chromaticity& xy) {
  std::ostringstream out;
  out << '(' << std::setprecision(4) << xy.x << ", " << xy.y << ')';
  return out.str();
}

bool SameTriangle(const Primaries& a, const Primaries& b) {
  return a.red == b.red && a.green == b.green && a.blue == b.blue;
}

}  // namespace

std::string PrimariesText(const Primaries& primaries) {
  if (SameTriangle(primaries, tarn::color::kSrgb)) return "sRGB";
  if (SameTriangle(primaries, tarn::color::kDisplayP3)) return "P3";
  if (SameTriangle(primaries, tarn::color::kBt2020)) return "BT.2020";
  return Text(primaries.red) + " " + Text(primaries.green) + " " + Text(primaries.blue);
}

std::string WhiteText(const Chromaticity& white) {
  if (white == tarn::color::kD65) return "D65";
  if (white == tarn::color::kD50) return "D50";
  if (white == tarn::color::kDciWhite) return "DCI white";
  return Text(white);
}

std::string TransferText(const TransferFunction& transfer) {
  switch (transfer.curve) {
    case Curve::kLinear:
      return "linear";
    case Curve::kGamma: {
      std::ostringstream out;
      out << "gamma " << transfer.gamma;
      return out.str();
    }
    case Curve::kSrgb:
      return "sRGB curve";
    case Curve::kRamp:
      return "measured ramp";
    case Curve::kBt1886:
      return "BT.1886";
    case Curve::kHlg:
      return "HLG";
    case Curve::kSt2084:
      return transfer.content ? "PQ rolled off (BT.2390)" : "PQ";
  }
  return "";
}

std::string TransferSource(const TransferFunction& transfer) {
  switch (transfer.curve) {
    case Curve::kSrgb:
      return "IEC 61966-2-1, clause 5.2";
    case Curve::kBt1886:
      return "ITU-R BT.1886, annex 1";
    case Curve::kHlg:
      return "ITU-R BT.2100, table 5";
    case Curve::kSt2084:
      return transfer.content ? "SMPTE ST 2084, section 5, and ITU-R BT.2390, section 5.4.1"
                              : "SMPTE ST 2084, section 5";
    default:
      return "the panel's description";
  }
}

std::string TargetText(const tarn::reference::Panel& panel, const tarn::reference::Target& target) {
  const Primaries& own = panel.primaries;
  const bool is_own_white = target.primaries.white == own.white;
  std::string text = SameTriangle(target.primaries, own)
                         ? std::string("the panel's primaries")
                         : "primaries of " + PrimariesText(target.primaries);
  text += ", " + (is_own_white ? "its white" : WhiteText(target.primaries.white));
  if (!is_own_white) text += target.adaptation ? " as the panel's" : " kept";
  return text + ", " + TransferText(target.transfer);
}

}  // namespace zelctl
