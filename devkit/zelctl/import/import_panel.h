// A panel description from a file of another kind.
#pragma once

#include <string>
#include <vector>

#include "devkit/zelctl/import/panel_facts.h"
#include "devkit/zelctl/json_output.h"

namespace zelctl {

struct ImportedPanel {
  Json description;                // as the mode parser takes it
  std::vector<std::string> notes;  // what the parser will say about it, a line each
};

// From the contents of the file at `path`: an ICC display profile, or CGATS measurements
// of a display. Throws UsageError, which begins with `path`.
ImportedPanel ImportPanel(const std::string& path, const std::string& bytes,
                          const ImportOptions& options);

}  // namespace zelctl
