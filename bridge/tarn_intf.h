// SPDX-License-Identifier: Apache-2.0

// The two run-time libraries as the plug-in sees them. Written for their
// authors too: implement one of the two interfaces and export its factory.
//
// Tags:
//   [start-up]  on the plug-in's start-up thread, while the host is in Init.
//   [call]      on a host thread, under the plug-in object's lock: calls for one
//               plug-in object never overlap. Each plug-in object has library
//               objects of its own; what those share inside the library, the
//               library guards. Don't call the plug-in back, its lock is not
//               recursive.
//
// An operation returns 0, or a non-zero code of the library's own. Allocation
// failure is the only exception that may leave one; it reaches the host as it is,
// but for DeInit and for all of the algorithm library's start-up, where the plug-in
// takes any exception for a failure.
//
// Envelopes and the records in them belong to the plug-in. An input record lives as
// long as the answer to it: an answer may point into its request. What a library
// puts into a list of an output record (strings, shared pointers to typed records)
// passes to the plug-in, which drops it before the host's call returns and always
// before the library is closed.
#pragma once

#include <string>

#include "bridge/zel_ids.h"
#include "interface/payload.h"

namespace tarn {

// Both libraries offer the same slots; the two destructor slots come first.
class LibraryIntf {
 public:
  // On the host thread that destroys the plug-in object, without its lock, or that
  // calls Init: a second one, or one whose start-up failed; a parser's also where it
  // has no modes. An algorithm object whose Init failed is destroyed on the start-up
  // thread at once. DeInit need not have been called before.
  virtual ~LibraryIntf() = default;

  // [start-up] Once per object, first. `arg` is the host's text. A parser's code
  // fails the host's Init and becomes its result; after an algorithm library's the
  // plug-in goes on without merging. Either way the object is destroyed.
  virtual int Init(const std::string& arg) = 0;

  // [call] May be repeated; the object stays alive. The result is ignored, and so is
  // whatever it throws.
  virtual int DeInit() = 0;

  // [call] Parser: the three dimension records; the code becomes the host's result.
  // The plug-in keeps the dimensions even so: whatever the answer, the gamma and
  // inverse-gamma lists handed out later must hold as many entries. Algorithm
  // library: not called.
  virtual int SetProperty(const TarnPayload& payload) = 0;

  // [start-up] kZelModesList; [call] kZelPbDitherHwConfig. Fills an empty record;
  // after a code other than 0, which becomes the host's result, nothing of it is
  // used. Algorithm library: not called.
  virtual int GetProperty(TarnPayload* payload) = 0;

  // [call] Parser: the two mode operations, into an empty list; what it holds is
  // converted even when the result is not 0. A code is logged, and for software
  // assets becomes the host's result. Algorithm library: kZelPccMerge; nothing of
  // the output is used unless the result is 0.
  virtual int ProcessOps(ZelOps op, const TarnPayload& in, TarnPayload* out) = 0;
};

// libtarn-json-mode-parser.so: knows the panel's modes and computes the block
// configurations of one.
class ModeParserIntf : public LibraryIntf {};

// libtarn-algo.so, optional: merges PCC matrices.
class TarnAlgoIntf : public LibraryIntf {};

// The files that are opened, and the factories that they export.
inline constexpr const char* kModeParserLibrary = "libtarn-json-mode-parser.so";
inline constexpr const char* kModeParserSymbol = "GetTarnZelInterface";
inline constexpr const char* kTarnAlgoLibrary = "libtarn-algo.so";
inline constexpr const char* kTarnAlgoSymbol = "GetTarnAlgoInterface";

// The version of their interfaces that both factories are asked for.
inline constexpr int kTarnMajorVersion = 2;
inline constexpr int kTarnMinorVersion = 0;

// The factories, called with that version. Return a new object, which the plug-in
// owns and destroys with delete, or null.
using ModeParserFactory = ModeParserIntf* (*)(int major_version, int minor_version);
using TarnAlgoFactory = TarnAlgoIntf* (*)(int major_version, int minor_version);

}  // namespace tarn

// What the libraries export, with default visibility. In an Init: the parser's is
// called on the host's thread, the algorithm library's on the start-up thread.
extern "C" {
tarn::ModeParserIntf* GetTarnZelInterface(int major_version, int minor_version);
tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major_version, int minor_version);
}
