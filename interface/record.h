// One definition, two types.
//
// Most boundary records cross both boundaries, in either direction: between the
// host and the plug-in (namespace velaricolor) and between the plug-in and one of
// the run-time libraries (namespace tarn), with the same layout on both sides.
// Each is written once, as a template over its side, so that the two can't drift
// apart, and still gives two distinct types, so that handing the one where the
// other belongs does not compile.
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

// Names both types of the record template zeltarn::layout::Record. Used at
// global scope, beside the definition.
#define ZEL_DECLARE_SIDES(Record)                        \
  namespace velaricolor {                                \
  using Record = ::zeltarn::layout::Record<HostSide>;    \
  }                                                      \
  namespace tarn {                                       \
  using Record = ::zeltarn::layout::Record<LibrarySide>; \
  }

// Pin the size and alignment of a record, and the place of a field, on both sides.
#define ZEL_PIN_SIZE(Record, bytes)                                                        \
  static_assert(sizeof(velaricolor::Record) == (bytes) && sizeof(tarn::Record) == (bytes), \
                #Record " changed its size")
#define ZEL_PIN_ALIGNMENT(Record, bytes)                                                     \
  static_assert(alignof(velaricolor::Record) == (bytes) && alignof(tarn::Record) == (bytes), \
                #Record " changed its alignment")
#define ZEL_PIN_FIELD(Record, field, offset)                        \
  static_assert(offsetof(velaricolor::Record, field) == (offset) && \
                    offsetof(tarn::Record, field) == (offset),      \
                #Record "::" #field " moved")

static_assert(sizeof(void*) == 8, "the boundary records are those of a 64-bit machine");
static_assert(sizeof(std::string) == 24, "build against libc++: its strings are 24 bytes");
static_assert(sizeof(std::vector<int>) == 24, "vectors are 24 bytes");
static_assert(sizeof(std::shared_ptr<void>) == 16, "shared pointers are 16 bytes");
