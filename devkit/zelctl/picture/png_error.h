// SPDX-License-Identifier: Apache-2.0

// How libpng reports: by a message, and a jump out of the call.
#pragma once

#include <png.h>

#include <array>
#include <csetjmp>
#include <cstring>

namespace zelctl {

using PngMessage = std::array<char, 128>;

// For png_create_*_struct, with a PngMessage as its pointer.
[[noreturn]] inline void KeepMessage(png_structp png, png_const_charp text) {
  auto* message = static_cast<PngMessage*>(png_get_error_ptr(png));
  std::strncpy(message->data(), text, message->size() - 1);
  png_longjmp(png, 1);
}

inline void PassWarning(png_structp /*png*/, png_const_charp /*text*/) {}

}  // namespace zelctl
