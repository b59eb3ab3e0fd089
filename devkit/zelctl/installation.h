// SPDX-License-Identifier: Apache-2.0

// Where the program finds what came with it.
#pragma once

#include <string>

namespace zelctl {

struct Installation {
  std::string plugin;
  std::string panel;  // the sample that is used unless another is named
};

// As seen from the program's own file, in the build folder and in any prefix alike.
Installation FindInstallation();

}  // namespace zelctl
