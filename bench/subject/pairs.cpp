// SPDX-License-Identifier: Apache-2.0
#include "bench/subject/pairs.h"

namespace {

const std::vector<ZelPair>& AllPairs() {
  static const std::vector<ZelPair> pairs = [] {
    std::vector<ZelPair> all;
    for (const auto& some : {ModeOperationPairs(), PropertyPairs(), ArithmeticPairs(),
                             StartUpPairs(), GrowthPairs(), EndToEndPairs(), PicturePairs()}) {
      all.insert(all.end(), some.begin(), some.end());
    }
    return all;
  }();
  return pairs;
}

}  // namespace

size_t ZelPairCount() { return AllPairs().size(); }
const ZelPair* ZelPairAt(size_t index) { return &AllPairs()[index]; }
