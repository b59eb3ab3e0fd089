// SPDX-License-Identifier: Apache-2.0

// The two run-time libraries as the plug-in sees them. The author of a library
// implements one of the two interfaces and exports its factory.
//
// Tags:
//   [start-up]  on the plug-in's start-up thread, while the host is in Init.
//   [call]      on a host thread, under the plug-in object's lock: calls for one
//               plug-in object never overlap. Each plug-in object has library
//               objects of its own; the library guards whatever its objects share.
//               Don't call the plug-in back: its lock is not recursive.
//
// An operation returns 0, or a non-zero code of the library's own. The only
// exception that may leave one is std::bad_alloc, which the plug-in passes on to the
// host. In DeInit and in the algorithm library's start-up the plug-in catches every
// exception and treats it as a failure.
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
  // Runs on the host thread that destroys the plug-in object, without its lock. Also on
  // the host thread of an Init that is a second one, whose start-up failed, or (parser)
  // whose mode list is empty. If an algorithm object's Init fails, the start-up thread
  // destroys the object at once. DeInit may not have been called before.
  virtual ~LibraryIntf() = default;

  // [start-up] Once per object, first. `arg` is the host's text. If the parser answers a
  // code, the host's Init fails with it; if the algorithm library does, the plug-in goes
  // on without merging. Either way the object is destroyed.
  virtual int Init(const std::string& arg) = 0;

  // [call] May be repeated; the object stays alive. The plug-in ignores the result and
  // any exception.
  virtual int DeInit() = 0;

  // [call] Parser: the three dimension records; the code becomes the host's result.
  // The plug-in keeps the dimensions whatever the answer: from then on the gamma and
  // inverse-gamma lists must hold as many entries. Algorithm library: not called.
  virtual int SetProperty(const TarnPayload& payload) = 0;

  // [start-up] kZelModesList; [call] kZelPbDitherHwConfig. Fills an empty record. A
  // code other than 0 becomes the host's result, and the record is not used. Algorithm
  // library: not called.
  virtual int GetProperty(TarnPayload* payload) = 0;

  // [call] Parser: the two mode operations, which fill an empty list. The plug-in
  // converts the list even if the result is not 0. It logs such a code, and for software
  // assets the code becomes the host's result. Algorithm library: kZelPccMerge; the
  // output is used only if the result is 0.
  virtual int ProcessOps(ZelOps op, const TarnPayload& in, TarnPayload* out) = 0;
};

// libtarn-json-mode-parser.so: knows the panel's modes and computes the block
// configurations of one.
class ModeParserIntf : public LibraryIntf {};

// libtarn-algo.so, optional: merges PCC matrices.
class TarnAlgoIntf : public LibraryIntf {};

// The files that the plug-in opens, and the factories that they export.
inline constexpr const char* kModeParserLibrary = "libtarn-json-mode-parser.so";
inline constexpr const char* kModeParserSymbol = "GetTarnZelInterface";
inline constexpr const char* kTarnAlgoLibrary = "libtarn-algo.so";
inline constexpr const char* kTarnAlgoSymbol = "GetTarnAlgoInterface";

// The version of the interfaces, for which the plug-in asks both factories.
inline constexpr int kTarnMajorVersion = 2;
inline constexpr int kTarnMinorVersion = 0;

// The factories, called with that version. Return a new object, which the plug-in
// owns and destroys with delete, or null.
using ModeParserFactory = ModeParserIntf* (*)(int major_version, int minor_version);
using TarnAlgoFactory = TarnAlgoIntf* (*)(int major_version, int minor_version);

}  // namespace tarn

// What the libraries export, with default visibility. During Init the host's thread
// calls the parser's factory, the start-up thread that of the algorithm library.
extern "C" {
tarn::ModeParserIntf* GetTarnZelInterface(int major_version, int minor_version);
tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major_version, int minor_version);
}
