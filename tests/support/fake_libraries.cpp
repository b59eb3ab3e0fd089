// SPDX-License-Identifier: Apache-2.0
#include "tests/support/fake_libraries.h"

#include <sched.h>
#include <sys/prctl.h>

#include <array>
#include <new>

#include "tests/support/allocations.h"
#include "tests/support/fake_platform.h"

namespace {

void Note(const std::string& event) {
  const NeverFailing never_failing;
  Platform().events.push_back(event);
}

// A call, for which the library needs memory.
void NoteCall(const std::string& event) {
  Note(event);
  ::operator delete(::operator new(1));
}

template <typename T>
T& RecordIn(const tarn::TarnPayload& envelope) {
  return *static_cast<T*>(envelope.payload);
}

class ScriptedParser final : public tarn::ModeParserIntf {
 public:
  ~ScriptedParser() override { Note("delete parser"); }

  int Init(const std::string& arg) override {
    NoteCall("parser Init " + arg);
    std::array<char, 16> name = {};
    prctl(PR_GET_NAME, name.data());
    Parser().thread_name = name.data();
    Parser().scheduling = sched_getscheduler(0);
    return Finish(Parser().init_result);
  }

  int DeInit() override {
    NoteCall("parser DeInit");
    return Finish(-1);  // ignored
  }

  int SetProperty(const tarn::TarnPayload& payload) override {
    NoteCall("parser SetProperty " + std::to_string(payload.prop));
    const NeverFailing never_failing;
    Parser().in = payload;
    Parser().dimensions = RecordIn<tarn::PostBlendHwConfig>(payload);
    return Finish(Parser().set_result);
  }

  int GetProperty(tarn::TarnPayload* payload) override {
    NoteCall("parser GetProperty " + std::to_string(payload->prop));
    Parser().out = *payload;
    if (payload->prop == tarn::kZelModesList) {
      RecordIn<tarn::ColorModeList>(*payload).modes = Parser().modes;
      return Finish(Parser().list_result);
    }
    RecordIn<tarn::HwConfigOutputParams>(*payload).payloads = Parser().dither;
    return Finish(Parser().dither_result);
  }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    NoteCall("parser ProcessOps " + std::to_string(op));
    Parser().in = in;
    Parser().out = *out;
    {
      const NeverFailing never_failing;
      Parser().request = RecordIn<tarn::ModeRenderInputParams>(in);
    }
    RecordIn<tarn::HwConfigOutputParams>(*out).payloads = Parser().blocks;
    return Finish(Parser().process_result);
  }

 private:
  static int Finish(int result) {
    if (Parser().during_call) Parser().during_call();
    return result;
  }
};

class ScriptedAlgo final : public tarn::TarnAlgoIntf {
 public:
  ~ScriptedAlgo() override { Note("delete algo"); }

  int Init(const std::string& arg) override {
    NoteCall("algo Init " + arg);
    return Finish(Algo().init_result);
  }

  int DeInit() override {
    NoteCall("algo DeInit");
    return Finish(-1);  // ignored
  }

  int SetProperty(const tarn::TarnPayload& /*payload*/) override { return kUnexpected; }
  int GetProperty(tarn::TarnPayload* /*payload*/) override { return kUnexpected; }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    if (op != tarn::kZelPccMerge) return kUnexpected;
    NoteCall("algo ProcessOps " + std::to_string(op));
    const NeverFailing never_failing;
    Algo().in = in;
    Algo().out = *out;
    Algo().blank = RecordIn<tarn::PccMergeOutput>(*out);
    RecordIn<tarn::PccMergeOutput>(*out).result = Algo().merged[Algo().merges.size() % 2];
    Algo().merges.push_back(RecordIn<tarn::PccMergeInput>(in));
    return Finish(Algo().merge_result);
  }

 private:
  static int Finish(int result) {
    if (Algo().during_call) Algo().during_call();
    return result;
  }

  static constexpr int kUnexpected = -1;
};

std::string FactoryEvent(const std::string& library, int major, int minor) {
  return library + " factory " + std::to_string(major) + " " + std::to_string(minor);
}

}  // namespace

// Each event of a factory that makes objects stands for one that exists.

tarn::ModeParserIntf* MakeFakeParser(int major_version, int minor_version) {
  auto object = Parser().makes_object ? std::make_unique<ScriptedParser>() : nullptr;
  Note(FactoryEvent("parser", major_version, minor_version));
  return object.release();
}

tarn::TarnAlgoIntf* MakeFakeAlgo(int major_version, int minor_version) {
  if (Algo().during_call) Algo().during_call();
  auto object = Algo().makes_object ? std::make_unique<ScriptedAlgo>() : nullptr;
  Note(FactoryEvent("algo", major_version, minor_version));
  return object.release();
}
