// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/render_picture.h"

#include <cmath>

namespace zelctl {

void SendThrough(const BlockPipeline& pipeline, Picture* picture, Progress* progress) {
  constexpr double kMaxSample = 255;
  std::vector<uint8_t>& samples = picture->samples;
  const size_t row = picture->channels * picture->width;
  for (size_t at = 0; at < samples.size(); at += picture->channels) {
    if (at % row == 0) {
      progress->Show(static_cast<double>(at) / static_cast<double>(samples.size()));
    }
    tarn::color::Vec3 color;
    for (size_t i = 0; i < 3; ++i) color[i] = samples[at + i] / kMaxSample;
    color = pipeline.Apply(color);
    for (size_t i = 0; i < 3; ++i) {
      samples[at + i] = static_cast<uint8_t>(std::lround(kMaxSample * color[i]));
    }
  }
}

}  // namespace zelctl
