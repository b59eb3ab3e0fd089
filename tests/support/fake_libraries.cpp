#include "tests/support/fake_libraries.h"

#include <sched.h>
#include <sys/prctl.h>

#include <array>

#include "tests/support/fake_platform.h"

namespace {

void Note(const std::string& event) { Platform().events.push_back(event); }

template <typename T>
T& RecordIn(const tarn::TarnPayload& envelope) {
  return *static_cast<T*>(envelope.payload);
}

class ScriptedParser final : public tarn::ModeParserIntf {
 public:
  ~ScriptedParser() override { Note("delete parser"); }

  int Init(const std::string& arg) override {
    Note("parser Init " + arg);
    std::array<char, 16> name = {};
    prctl(PR_GET_NAME, name.data());
    Parser().thread_name = name.data();
    Parser().scheduling = sched_getscheduler(0);
    return Finish(Parser().init_result);
  }

  int DeInit() override {
    Note("parser DeInit");
    return Finish(-1);  // ignored
  }

  int SetProperty(const tarn::TarnPayload& payload) override {
    Note("parser SetProperty " + std::to_string(payload.prop));
    Parser().in = payload;
    Parser().dimensions = RecordIn<tarn::PostBlendHwConfig>(payload);
    return Finish(Parser().set_result);
  }

  int GetProperty(tarn::TarnPayload* payload) override {
    Note("parser GetProperty " + std::to_string(payload->prop));
    Parser().out = *payload;
    if (payload->prop == tarn::kZelModesList) {
      RecordIn<tarn::ColorModeList>(*payload).modes = Parser().modes;
      return Finish(Parser().list_result);
    }
    RecordIn<tarn::HwConfigOutputParams>(*payload).payloads = Parser().dither;
    return Finish(Parser().dither_result);
  }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    Note("parser ProcessOps " + std::to_string(op));
    Parser().op = op;
    Parser().in = in;
    Parser().out = *out;
    Parser().request = RecordIn<tarn::ModeRenderInputParams>(in);
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
    Note("algo Init " + arg);
    return Algo().init_result;
  }

  int DeInit() override {
    Note("algo DeInit");
    return -1;  // ignored
  }

  int SetProperty(const tarn::TarnPayload& /*payload*/) override {
    return Unexpected("SetProperty");
  }
  int GetProperty(tarn::TarnPayload* /*payload*/) override { return Unexpected("GetProperty"); }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    if (op != tarn::kZelPccMerge) return Unexpected("ProcessOps");
    Algo().in = in;
    Algo().out = *out;
    Algo().operands = RecordIn<tarn::PccMergeInput>(in);
    Algo().blank = RecordIn<tarn::PccMergeOutput>(*out);
    ++Algo().merges;
    RecordIn<tarn::PccMergeOutput>(*out).result = Algo().merged;
    return Algo().merge_result;
  }

 private:
  static int Unexpected(const std::string& call) {
    Note("algo unexpected " + call);
    return -1;
  }
};

std::string FactoryEvent(const std::string& library, int major, int minor) {
  return library + " factory " + std::to_string(major) + " " + std::to_string(minor);
}

}  // namespace

tarn::ModeParserIntf* MakeFakeParser(int major_version, int minor_version) {
  Note(FactoryEvent("parser", major_version, minor_version));
  return Parser().makes_object ? new ScriptedParser : nullptr;
}

tarn::TarnAlgoIntf* MakeFakeAlgo(int major_version, int minor_version) {
  Note(FactoryEvent("algo", major_version, minor_version));
  return Algo().makes_object ? new ScriptedAlgo : nullptr;
}
