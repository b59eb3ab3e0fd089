// SPDX-License-Identifier: Apache-2.0

// .cube: the whole chain, sampled.
#include <algorithm>
#include <string>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/export/cube_table.h"
#include "devkit/zelctl/export/formats.h"
#include "devkit/zelctl/export/number_text.h"

namespace zelctl {
namespace {

constexpr uint32_t kUsualSize = 65;
constexpr uint32_t kMinSize = 2;
constexpr uint32_t kMaxSize = 129;  // more than OpenColorIO takes

// Codes of 8 bits from which on a sampled mode is called bad: steps of that size are seen.
constexpr double kBadError = 8;

std::string ErrorText(const SamplingError& error) {
  return "largest " + FixedText(error.largest, 2) + ", mean " + FixedText(error.mean, 3);
}

bool ClfHolds(const ExportedMode& mode) {
  try {
    WriteClf(mode, {});
    return true;
  } catch (const UsageError&) {
    return false;
  }
}

}  // namespace

ExportedFile WriteCube(const ExportedMode& mode, const FormatOptions& options) {
  const uint32_t size = options.size.value_or(kUsualSize);
  if (size < kMinSize || size > kMaxSize) {
    throw UsageError("--size: " + std::to_string(size) + " is not from " +
                     std::to_string(kMinSize) + " to " + std::to_string(kMaxSize));
  }
  const CubeTable table(mode.pipeline, size);
  const SamplingErrors errors = MeasureSampling(mode.pipeline, table);

  ExportedFile file;
  file.bytes =
      "# " + mode.Title() + ": IGC, gamut, PCC and GC, sampled (" + mode.Id() +
      ")\n"
      "# In: signal of the mode's content; out: signal that drives the panel.\n"
      "# What the sampling costs, in codes of 8 bits, against the blocks themselves, over " +
      std::to_string(errors.colors) +
      " colours:\n"
      "# tetrahedral interpolation: " +
      ErrorText(errors.tetrahedral) +
      "\n"
      "# trilinear interpolation: " +
      ErrorText(errors.trilinear) +
      "\n"
      "# (256 greys, and all colours of the " +
      std::to_string(SampledCodes().size()) +
      " codes 0 to 8, 10, 13, 14, 16, 19, ... 255; not rounded)\n";
  const double largest = std::max(errors.tetrahedral.largest, errors.trilinear.largest);
  if (largest >= kBadError) {
    file.warning = "a cube of " + std::to_string(size) + " shows this mode up to " +
                   FixedText(largest, 0) + " codes of 8 bits off; --format " +
                   (ClfHolds(mode) ? "clf" : "json") + " is exact";
    file.bytes += "# Warning: " + file.warning + "\n";
  }
  file.bytes += "LUT_3D_SIZE " + std::to_string(size) + "\nDOMAIN_MIN 0 0 0\nDOMAIN_MAX 1 1 1\n";
  for (const auto& node : table.Nodes()) {
    for (size_t i = 0; i < 3; ++i) {
      file.bytes += FixedText(static_cast<double>(node[i]), 8) + (i < 2 ? ' ' : '\n');
    }
  }
  return file;
}

}  // namespace zelctl
