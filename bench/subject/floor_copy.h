// SPDX-License-Identifier: Apache-2.0

// The physical floor of a conversion: its bytes, moved.
#pragma once

#include <memory>
#include <vector>

#include "modes/mode_op_params.h"

// A bare memcpy of every byte that a conversion carries, into buffers that exist:
// those of an output record that the plug-in filled before.
class FloorCopy {
 public:
  FloorCopy(const std::vector<tarn::HwConfigPayload>& from,
            const velaricolor::HwConfigOutputParams& to);
  void Run() const;

 private:
  struct Span {
    const void* from;
    void* to;
    size_t bytes;
  };
  std::vector<Span> spans_;
};

// The same into new records: make_shared without zeroing, room for the lists and
// blobs, and an output list.
class FloorFresh {
 public:
  explicit FloorFresh(const std::vector<tarn::HwConfigPayload>& from);
  void Run() const;

 private:
  using Make = std::shared_ptr<void> (*)();
  struct Record {
    const void* from;
    size_t bytes;
    Make make;
    std::vector<std::pair<const void*, size_t>> lists;
  };
  std::vector<Record> records_;
};
