// SPDX-License-Identifier: Apache-2.0

// The plug-in as the host sees it: one exported factory and one object.
//
// A host opens libzeltarn.so, asks GetVcPostBlendInterface for an object, calls
// Init once, then the three entry points, and destroys the object with delete.
//
// Tags say when and from where a call may come:
//   [any host thread]  calls on one object run one at a time: its lock is held for
//                      the whole call, also while the call is in a library. The
//                      lock is not recursive: don't call back from a library. Each
//                      object has a lock of its own.
//   [initialised]      refused with -22 before an Init has returned 0 and
//                      after DeInit.
//   [exclusive]        no other call on the object may be running.
//
// Results are 0, a code of result_codes.h or, where it is said, the mode parser's own
// code. If the libraries keep their promises, the only exception that leaves a call is
// std::bad_alloc. After any exception the lock is free and the object can be used.
#pragma once

#include <string>

#include "interface/payload.h"
#include "interface/result_codes.h"
#include "interface/vc_ids.h"

namespace velaricolor {

// Operations in the order of their slots; the two destructor slots come first.
class VcPostBlendInterface {
 public:
  // [exclusive] Destroys the library objects, without the lock, then closes the
  // libraries.
  //
  // Records that the plug-in handed out (every HwConfigPayload::payload) are
  // owned by shared pointers whose deleters are code of libzeltarn.so. They may
  // outlive this object, but the library must stay loaded while they live.
  virtual ~VcPostBlendInterface() = default;

  // [any host thread] Loads the mode parser, fetches the colour modes and loads
  // the algorithm library. `arg` is handed to both libraries unchanged; the
  // plug-in attaches no meaning to it. Blocks until the short-lived start-up
  // thread has ended. Returns 0, -22, or the parser's own failure code. A
  // missing or failing algorithm library is not a failure. A second call starts
  // afresh: the old library objects are destroyed, the mode list is rebuilt,
  // settings stay. If it fails, an initialised object stays initialised, but
  // without modes: operations return 0 and touch nothing. An object that was not
  // initialised, or was de-initialised, stays so.
  virtual int Init(const std::string& arg) = 0;

  // [any host thread] Tells both libraries to de-initialise. Closes nothing and
  // forgets no setting. Always returns 0, also the second time in a row and
  // whatever the libraries answer or throw.
  virtual int DeInit() = 0;

  // [any host thread, initialised] Sets the property `payload.prop` from the
  // record that `payload` addresses; the record is only read, and not kept.
  // Returns 0. If the plug-in refuses the call, it returns -22 or -95 and changes
  // nothing. For table dimensions it may also return the mode parser's own code,
  // which can be one of the same numbers; it then keeps the new dimensions.
  virtual int SetProperty(const VcPayload& payload) = 0;

  // [any host thread, initialised] Fills the caller's record for the property
  // `payload->prop`. Returns 0, -22 (also for null), -95, or the mode parser's own
  // code.
  virtual int GetProperty(VcPayload* payload) = 0;

  // [any host thread, initialised] Runs `op`: reads the record of `in`, writes
  // that of `out`. An output record may be passed again: entries are updated by
  // name, in place, and none is removed. With no modes, returns 0 and touches
  // nothing. When memory runs out, blocks of the old mode may remain beside those of
  // the new one. No entry is half of each, but the PCC block may lack a colour step.
  // Returns 0, -22 (also for a null `out`), -95, or (software assets
  // only) the mode parser's own code. If the parser fails a render intent, only the
  // log shows it.
  virtual int ProcessOps(VcOps op, const VcPayload& in, VcPayload* out) = 0;
};

}  // namespace velaricolor

// The one exported function. Returns a new object for version 2.0, which the
// caller owns and destroys with delete, and null for any other version.
// [any host thread]
extern "C" velaricolor::VcPostBlendInterface* GetVcPostBlendInterface(int major_version,
                                                                      int minor_version);
