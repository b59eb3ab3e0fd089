// SPDX-License-Identifier: Apache-2.0

// What the content of a mode stands for: the colour that its target asks the panel
// to show for a signal, and the signal of a colour.
#pragma once

#include "devkit/reference/panel/panel.h"

namespace zelctl {

class ContentColor {
 public:
  // Both must outlive the object.
  ContentColor(const tarn::reference::Panel& panel, const tarn::reference::Target& target);

  // The target's colour for a signal from 0 to 1 per channel, as light of the panel's
  // primaries (panel_light.h). Outside 0 to 1 where the panel can't show it.
  tarn::color::Vec3 PanelLight(const tarn::color::Vec3& signal) const;

  // The signal of linear light of the target's primaries, where 1 is the reference
  // white. What the signal can't carry is clipped.
  tarn::color::Vec3 Encode(const tarn::color::Vec3& light) const;

  // Signal of a diffuse white: 75 % of HLG, 203 cd/m2 of PQ (ITU-R BT.2408, table 1);
  // full signal of everything else.
  double ReferenceWhite() const;

 private:
  bool IsAbsolute() const;
  // Light per channel: cd/m2 where IsAbsolute, else a share of the panel's range.
  tarn::color::Vec3 Light(const tarn::color::Vec3& signal) const;
  double ChannelLight(size_t channel, double signal) const;
  tarn::color::Vec3 EncodeHlg(const tarn::color::Vec3& light) const;

  const tarn::reference::Panel& panel_;
  const tarn::reference::Target& target_;
  tarn::color::Mat3 to_panel_;
  tarn::color::Vec3 luminance_weights_;
};

}  // namespace zelctl
