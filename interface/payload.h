// SPDX-License-Identifier: Apache-2.0

// The envelope of every call: VcPayload between host and plug-in, TarnPayload
// between plug-in and libraries.
#pragma once

#include <cstddef>
#include <cstdint>

#include "interface/record.h"

namespace zeltarn::layout {

template <typename Side>
struct Payload {
  static constexpr uint32_t kVersion = 24;

  uint32_t version = kVersion;  // of the envelope itself; ProcessOps doesn't look at it
  uint32_t len = 0;             // bytes of the record that `payload` addresses
  uint32_t prop = 0;            // property id; 0 and unread for operations
  uint32_t padding = 0;         // not read
  void* payload = nullptr;      // the record; the caller owns it
};

// An envelope around `record`. The record must outlive the call.
template <typename Side, typename T>
Payload<Side> Wrap(T* record, uint32_t prop) {
  Payload<Side> envelope;
  envelope.len = sizeof(T);
  envelope.prop = prop;
  envelope.payload = record;
  return envelope;
}

}  // namespace zeltarn::layout

namespace velaricolor {
using VcPayload = zeltarn::layout::Payload<HostSide>;

// An envelope for a call of the plug-in, with the record's exact length. Operations have
// no property. The plug-in does not write to the record of SetProperty, nor to a request.
template <typename T>
VcPayload Wrap(T* record, int32_t prop = 0) {
  return zeltarn::layout::Wrap<HostSide>(record, static_cast<uint32_t>(prop));
}
}  // namespace velaricolor

namespace tarn {
using TarnPayload = zeltarn::layout::Payload<LibrarySide>;

// An envelope for a library call. Operations have property 0.
template <typename T>
TarnPayload Wrap(T* record, uint32_t prop = 0) {
  return zeltarn::layout::Wrap<LibrarySide>(record, prop);
}
}  // namespace tarn

namespace zeltarn::layout {

template <typename Envelope>
constexpr bool kEnvelopeIsPinned = sizeof(Envelope) == Envelope::kVersion &&
                                   alignof(Envelope) == 8 && offsetof(Envelope, version) == 0 &&
                                   offsetof(Envelope, len) == 4 && offsetof(Envelope, prop) == 8 &&
                                   offsetof(Envelope, payload) == 16;

}  // namespace zeltarn::layout

ZEL_PIN(zeltarn::layout::kEnvelopeIsPinned<velaricolor::VcPayload>, "VcPayload changed");
ZEL_PIN(zeltarn::layout::kEnvelopeIsPinned<tarn::TarnPayload>, "TarnPayload changed");
