#include "devkit/zelctl/export/formats.h"
namespace zelctl {
ExportedFile WriteTi3(const ExportedMode&, const FormatOptions&) { return {}; }
}  // namespace zelctl
