// SPDX-License-Identifier: Apache-2.0

// The plug-in with the reference libraries.
#pragma once

#include <cstddef>
#include <functional>

#include "modes/mode_op_params.h"

// Hands on a mode of the reference's panel, by its place in the list, in the usual dimensions.
void RenderReference(size_t mode,
                     const std::function<void(const velaricolor::HwConfigOutputParams&)>& use);
