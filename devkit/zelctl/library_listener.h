// SPDX-License-Identifier: Apache-2.0

// Objects that stand between the plug-in and a library's own, hand every call on, and
// note what the host will not get whole.
#pragma once

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "devkit/zelctl/call_watch.h"
#include "handlers/post_blend_hw_config.h"

namespace zelctl {

struct LibraryNotes {
  std::vector<std::string> problems;
  uint32_t igc_entries = zeltarn::kDefaultInverseGamma.num_of_entries;
  uint32_t gc_entries = zeltarn::kDefaultGamma.num_of_entries;
  std::string parser_start_up;  // what its Init or mode list answered, other than 0
  std::string algo_start_up;
};

// `kRole` is what the library is called.
template <typename Interface, const char* kRole>
class LibraryListener : public Interface {
 public:
  LibraryListener(std::unique_ptr<Interface> object, LibraryNotes* notes)
      : object_(std::move(object)), notes_(notes) {}
  ~LibraryListener() override {
    const CallWatch watch("destroying the object" + Of());
    object_.reset();
  }

  int DeInit() override {
    return Watched("calling DeInit" + Of(), [&] { return object_->DeInit(); });
  }
  int SetProperty(const tarn::TarnPayload& payload) override {
    return Watched("calling SetProperty" + Of(), [&] { return object_->SetProperty(payload); });
  }

 protected:
  // `call`, watched. An exception that leaves it is noted, for the plug-in may keep it to
  // itself.
  template <typename Call>
  int Watched(const std::string& doing, Call call) {
    const CallWatch watch(doing);
    const std::string place = "an exception left the library while " + doing;
    try {
      return call();
    } catch (const std::exception& e) {
      notes_->problems.push_back(place + ": " + e.what());
    } catch (...) {
      notes_->problems.push_back(place);
    }
    const std::string problem = notes_->problems.back();
    throw std::runtime_error(problem);
  }

  static std::string Of() { return std::string(" of the ") + kRole; }
  Interface& Object() { return *object_; }
  LibraryNotes& Notes() { return *notes_; }

 private:
  std::unique_ptr<Interface> object_;
  LibraryNotes* notes_;
};

inline constexpr char kParserRole[] = "mode parser";
inline constexpr char kAlgoRole[] = "algorithm library";

class ParserListener : public LibraryListener<tarn::ModeParserIntf, kParserRole> {
 public:
  using LibraryListener::LibraryListener;
  int Init(const std::string& arg) override;
  int GetProperty(tarn::TarnPayload* payload) override;
  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override;
};

class AlgoListener : public LibraryListener<tarn::TarnAlgoIntf, kAlgoRole> {
 public:
  using LibraryListener::LibraryListener;
  int Init(const std::string& arg) override;
  int GetProperty(tarn::TarnPayload* payload) override;
  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override;
};

}  // namespace zelctl
