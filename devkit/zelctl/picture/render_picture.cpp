// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/picture/render_picture.h"

#include <algorithm>
#include <atomic>
#include <future>

#include "devkit/zelctl/picture/pixel_transform.h"

namespace zelctl {

void SendThrough(const BlockPipeline& pipeline, unsigned threads, Picture* picture,
                 Progress* progress) {
  constexpr size_t kRows = 16;  // that a thread takes at a time
  const PixelTransform transform(pipeline, picture->bit_depth);
  std::atomic<size_t> next = 0;
  const auto work = [&](Progress* shown) {
    for (size_t row = next.fetch_add(kRows); row < picture->height; row = next.fetch_add(kRows)) {
      if (shown != nullptr) shown->Show(static_cast<double>(row) / picture->height);
      const size_t count = std::min<size_t>(kRows, picture->height - row);
      if (picture->bit_depth == 16) {
        transform.Apply(picture->channels, picture->Rows<uint16_t>(row, count));
      } else {
        transform.Apply(picture->channels, picture->Rows<uint8_t>(row, count));
      }
    }
  };
  std::vector<std::future<void>> others;
  for (unsigned i = 1; i < threads && i * kRows < picture->height; ++i) {
    others.push_back(std::async(std::launch::async, work, nullptr));
  }
  work(progress);
  for (std::future<void>& other : others) other.get();
}

}  // namespace zelctl
