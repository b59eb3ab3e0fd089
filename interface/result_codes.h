// SPDX-License-Identifier: Apache-2.0

// Result codes of every call across the plug-in's boundaries: 0 or a negative
// errno value. A library's own non-zero code is passed on unchanged where the
// call's documentation says so.
#pragma once

#include <cerrno>

namespace velaricolor {

inline constexpr int kOk = 0;

// The call is not acceptable: not initialised, a wrong length, version or
// address, an unknown property, or a library or factory that is not there.
inline constexpr int kErrInvalid = -EINVAL;

// A property from 513 to 1023 without a handler, or an unknown operation.
inline constexpr int kErrUnsupported = -EOPNOTSUPP;

// The algorithm library can't be opened. Never reaches the host: `Init`
// succeeds without that library.
inline constexpr int kErrNoLibrary = -ELIBACC;

static_assert(kErrInvalid == -22 && kErrUnsupported == -95 && kErrNoLibrary == -79,
              "the host and the libraries compare with these numbers");

}  // namespace velaricolor
