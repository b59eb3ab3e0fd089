// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/kept_inputs.h"

#include <filesystem>
#include <system_error>

#include "devkit/zelctl/errors.h"

namespace zelctl {

void RefuseInput(const std::string& output, const std::string& input) {
  namespace fs = std::filesystem;
  std::error_code none_there;
  if (fs::is_regular_file(output, none_there) && fs::equivalent(output, input, none_there)) {
    throw UsageError("can't write " + output + ": it is one of the files to read");
  }
}

void KeepInputs(const std::string& output, const GlobalOptions& globals,
                const RenderOptions& options, const std::string& input) {
  const SessionOptions& session = globals.session;
  for (const std::string& read :
       {input, options.ltm_path, session.panel, session.arg.value_or(""), session.plugin,
        session.libraries.parser.value_or(""), session.libraries.algo.value_or("")}) {
    RefuseInput(output, read);
  }
}

}  // namespace zelctl
