// SPDX-License-Identifier: Apache-2.0

// Why a panel description, or another JSON file read like one, was refused.
#pragma once

#include <stdexcept>

namespace tarn::reference {

// The text is one line that names the place and the reason.
class PanelError : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

}  // namespace tarn::reference
