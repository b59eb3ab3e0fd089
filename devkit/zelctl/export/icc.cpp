#include "devkit/zelctl/export/formats.h"
namespace zelctl {
ExportedFile WriteIcc(const ExportedMode&, const FormatOptions&) { return {}; }
}  // namespace zelctl
