// SPDX-License-Identifier: Apache-2.0

// What a rule of `validate` found.
#pragma once

#include <cstddef>
#include <string>

namespace zelctl {

enum class Verdict { kPassed, kFailed, kWarning, kSkipped };

struct Finding {
  Verdict verdict = Verdict::kSkipped;
  std::string seen;  // one line
};

// Sums up what one rule sees in many places.
class Tally {
 public:
  // `problem` says what is wrong at `place` where it is not `good`.
  void See(bool good, const std::string& place, const std::string& problem) {
    ++seen_;
    if (!good && ++bad_ == 1) first_ = place + ": " + problem;
  }

  // The first problem and the number of others, judged as `otherwise`; or how many
  // `things` were seen.
  Finding Sum(Verdict otherwise, const std::string& things) const {
    if (seen_ == 0) return {Verdict::kSkipped, "no " + things};
    if (bad_ == 0) return {Verdict::kPassed, std::to_string(seen_) + " " + things};
    return {otherwise, first_ + (bad_ == 1 ? "" : "; " + std::to_string(bad_ - 1) + " more")};
  }

 private:
  size_t seen_ = 0;
  size_t bad_ = 0;
  std::string first_;
};

}  // namespace zelctl
