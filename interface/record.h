// SPDX-License-Identifier: Apache-2.0

// One definition, two types.
//
// Most records cross two boundaries: between the host and the plug-in (namespace
// velaricolor), and between the plug-in and a run-time library (namespace tarn). Their
// layout is the same on both sides. Each record is written once, as a template over
// its side, so that the two layouts can't drift apart. It still gives two distinct
// types, so that code that passes one for the other does not compile.
//
// Layouts are those of the platform's standard library on a 64-bit machine:
// 8-byte pointers, 24-byte strings and vectors, 16-byte shared pointers.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace velaricolor {
struct HostSide;
}  // namespace velaricolor

namespace tarn {
struct LibrarySide;
}  // namespace tarn

namespace zeltarn::layout {

inline constexpr bool k64Bit = sizeof(void*) == 8;
inline constexpr bool kLibcxx = sizeof(std::string) == 24 && sizeof(std::vector<int>) == 24 &&
                                sizeof(std::shared_ptr<void>) == 16;
static_assert(__cplusplus >= 201703L, "zeltarn's headers need C++17 or later: -std=c++17");
static_assert(k64Bit, "zeltarn's boundary records are those of a 64-bit machine");
static_assert(kLibcxx || !k64Bit,
              "zeltarn's boundary records embed strings, vectors and shared pointers of libc++: "
              "build with clang++ -stdlib=libc++");

// If one of these fails, its message says why; the pins are left out then.
inline constexpr bool kLayoutKnown = k64Bit && kLibcxx;

}  // namespace zeltarn::layout

// Only the record headers use the macros below. They stay defined, because every record
// header needs them.

// Names both types of the record template zeltarn::layout::Record. Used at
// global scope, beside the definition.
#define ZEL_DECLARE_SIDES(Record)                        \
  namespace velaricolor {                                \
  using Record = ::zeltarn::layout::Record<HostSide>;    \
  }                                                      \
  namespace tarn {                                       \
  using Record = ::zeltarn::layout::Record<LibrarySide>; \
  }

#define ZEL_PIN(condition, text) \
  static_assert(!::zeltarn::layout::kLayoutKnown || (condition), text)

// Pin the size and alignment of a record, and the place of a field, on both sides.
#define ZEL_PIN_SIZE(Record, bytes)                                                  \
  ZEL_PIN(sizeof(velaricolor::Record) == (bytes) && sizeof(tarn::Record) == (bytes), \
          #Record " changed its size")
#define ZEL_PIN_ALIGNMENT(Record, bytes)                                               \
  ZEL_PIN(alignof(velaricolor::Record) == (bytes) && alignof(tarn::Record) == (bytes), \
          #Record " changed its alignment")
#define ZEL_PIN_FIELD(Record, field, offset)                  \
  ZEL_PIN(offsetof(velaricolor::Record, field) == (offset) && \
              offsetof(tarn::Record, field) == (offset),      \
          #Record "::" #field " moved")
