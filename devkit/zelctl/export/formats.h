// SPDX-License-Identifier: Apache-2.0

// The writers of all formats. Each throws UsageError for a mode that its format can't hold.
#pragma once

#include "devkit/zelctl/export/export_format.h"

namespace zelctl {

// Academy/ASC Common LUT Format 3.0 (S-2014-006): the blocks one by one, exactly.
ExportedFile WriteClf(const ExportedMode& mode, const FormatOptions& options);

// The whole chain as one 3D table (Cube LUT Specification 1.0), sampled.
ExportedFile WriteCube(const ExportedMode& mode, const FormatOptions& options);

// A display profile of the panel itself (ICC.1), matrix and tone curves.
ExportedFile WriteIcc(const ExportedMode& mode, const FormatOptions& options);

// XYZ of patches (CGATS.17, as ArgyllCMS writes and reads it).
ExportedFile WriteTi3(const ExportedMode& mode, const FormatOptions& options);

// The tables of the colour blocks: a row for each entry.
ExportedFile WriteCsv(const ExportedMode& mode, const FormatOptions& options);

// All blocks with all fields, and the colour blocks' tables as numbers.
ExportedFile WriteJson(const ExportedMode& mode, const FormatOptions& options);

}  // namespace zelctl
