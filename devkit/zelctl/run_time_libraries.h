// SPDX-License-Identifier: Apache-2.0

// The two run-time libraries as the plug-in gets them under zelctl: the files that the
// user names, and with a listener between, which notes what they answer. The plug-in is
// left as it is: it calls this program's dlopen.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "interface/vc_ids.h"

namespace zelctl {

// Files that --parser and --algo name; unset: the one that the plug-in finds by name.
struct LibraryFiles {
  std::optional<std::string> parser;
  std::optional<std::string> algo;
};

// Where the loader finds a library that the plug-in opens by name: in the
// environment's folders, beside the plug-in, in its usual places.
std::string FindByName(const std::string& name, const std::string& plugin);

class RunTimeLibraries {
 public:
  // For the plug-in of the file `plugin`, while this object lives.
  RunTimeLibraries(const LibraryFiles& files, const std::string& plugin);
  ~RunTimeLibraries();
  RunTimeLibraries(const RunTimeLibraries&) = delete;
  RunTimeLibraries& operator=(const RunTimeLibraries&) = delete;

  // Entries that the plug-in asks for in one of the two gamma blocks.
  void SetEntries(velaricolor::VcProperty property, uint32_t entries);

  // What was noted since the last call about answers that the host does not get whole,
  // one line each.
  std::vector<std::string> TakeProblems();

  // Why a library can't be used, in the loader's own words where it was not opened, or what
  // it answered in its start-up; empty where nothing failed.
  std::string ParserFailure() const;
  std::string AlgoFailure() const;

  // Whether there is a file, named or found.
  bool AlgoIsThere() const;
};

}  // namespace zelctl
