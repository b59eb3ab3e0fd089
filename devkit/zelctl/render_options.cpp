#include "devkit/zelctl/render_options.h"

namespace zelctl {

void ApplySizesAndNotifications(const RenderOptions& options, HostSession* session) {
  if (options.calibration) session->Notify(velaricolor::kVcDisplayCalibrationMode);
  for (const TableSize* size : {&options.igc, &options.gc, &options.gamut}) {
    if (!size->entries && !size->bits) continue;
    session->Set(size->property,
                 velaricolor::PostBlendHwConfig{
                     .num_of_entries = size->entries.value_or(size->usual.num_of_entries),
                     .bit_depth = size->BitDepth()});
  }
}

}  // namespace zelctl
