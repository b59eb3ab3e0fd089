// Objects that stand between the plug-in and a library's own, hand every call on, and
// note what the host will not get whole.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "handlers/post_blend_hw_config.h"

namespace zelctl {

struct LibraryNotes {
  std::vector<std::string> problems;
  uint32_t igc_entries = zeltarn::kDefaultInverseGamma.num_of_entries;
  uint32_t gc_entries = zeltarn::kDefaultGamma.num_of_entries;
  std::string parser_start_up;  // what its Init or mode list answered, other than 0
  std::string algo_start_up;
};

template <typename Interface>
class LibraryListener : public Interface {
 public:
  LibraryListener(std::unique_ptr<Interface> object, LibraryNotes* notes)
      : object_(std::move(object)), notes_(notes) {}

  int DeInit() override { return object_->DeInit(); }
  int SetProperty(const tarn::TarnPayload& payload) override {
    return object_->SetProperty(payload);
  }

 protected:
  Interface& Object() { return *object_; }
  LibraryNotes& Notes() { return *notes_; }

 private:
  std::unique_ptr<Interface> object_;
  LibraryNotes* notes_;
};

class ParserListener : public LibraryListener<tarn::ModeParserIntf> {
 public:
  using LibraryListener::LibraryListener;
  int Init(const std::string& arg) override;
  int GetProperty(tarn::TarnPayload* payload) override;
  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override;
};

class AlgoListener : public LibraryListener<tarn::TarnAlgoIntf> {
 public:
  using LibraryListener::LibraryListener;
  int Init(const std::string& arg) override;
  int GetProperty(tarn::TarnPayload* payload) override { return Object().GetProperty(payload); }
  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override;
};

}  // namespace zelctl
