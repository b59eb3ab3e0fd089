// SPDX-License-Identifier: Apache-2.0

// The plug-in, loaded and initialised: the one place that calls it.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "devkit/zelctl/run_time_libraries.h"
#include "interface/vc_post_blend_interface.h"
#include "modes/mode_op_params.h"

namespace zelctl {

struct SessionOptions {
  std::string plugin;
  std::string panel;
  std::optional<std::string> arg;  // for Init; unset: the path of the panel
  std::optional<int> log_level;    // unset: the environment's, or else errors only
  LibraryFiles libraries;

  // What the host does not get whole goes here, and to standard error at once.
  std::vector<std::string>* problems = nullptr;
};

// What Init is handed. Throws UsageError where that is a panel that can't be read.
std::string InitText(const SessionOptions& options);

// Failed calls throw CallError, a file that can't be used UsageError.
//
// Records that the plug-in fills hold its code: declare them after the session,
// so that they are gone when it closes the library.
class HostSession {
 public:
  explicit HostSession(const SessionOptions& options);
  HostSession(const HostSession&) = delete;
  HostSession& operator=(const HostSession&) = delete;
  ~HostSession();

  template <typename T>
  void Set(velaricolor::VcProperty property, T record) {
    SetPayload(property, Envelope(property, &record));
  }

  // For a property without a record.
  void Notify(velaricolor::VcProperty property);

  template <typename T>
  T Get(velaricolor::VcProperty property) {
    T record = {};
    auto payload = Envelope(property, &record);
    GetPayload(property, &payload);
    return record;
  }

  // Asks for `mode`; `out` may be the record of an earlier call.
  void Process(velaricolor::VcOps op, const velaricolor::ColorMode& mode,
               velaricolor::HwConfigOutputParams* out);

 private:
  struct LibraryCloser {
    void operator()(void* handle) const;
  };

  template <typename T>
  static velaricolor::VcPayload Envelope(velaricolor::VcProperty property, T* record) {
    return velaricolor::Wrap(record, property);
  }
  void SetPayload(velaricolor::VcProperty property, const velaricolor::VcPayload& payload);
  void GetPayload(velaricolor::VcProperty property, velaricolor::VcPayload* payload);
  void Initialise(const SessionOptions& options, const std::string& text);
  void Tell(const std::string& problem);
  void TellProblems();

  std::vector<std::string>* problems_;
  RunTimeLibraries libraries_;
  std::unique_ptr<void, LibraryCloser> library_;
  std::unique_ptr<velaricolor::VcPostBlendInterface> plugin_;  // before its library goes
};

}  // namespace zelctl
