// SPDX-License-Identifier: Apache-2.0

// Sequences of host calls, and the libraries' answers, against the model.

#include "fuzz/model.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/vc_post_blend_interface.h"

namespace zeltarn::fuzz {
namespace {

using velaricolor::VcPayload;

constexpr int kMaxSteps = 48;
constexpr int kMaxInits = 4;  // each starts a thread, which is slow
constexpr std::array<uint32_t, 20> kProps = {5,    6,  7,    8,   13,  2055, 1,    2, 9, 14,
                                             2048, 12, 2054, 512, 513, 1023, 1024, 0, 3, 1U << 31};

// A host, the plug-in's object and the model, through the same calls.
class Session {
 public:
  Session(Input* input, std::unique_ptr<velaricolor::VcPostBlendInterface> plugin)
      : input_(*input), plugin_(std::move(plugin)) {
    TheLibraries() = {};
  }
  ~Session() {
    plugin_.reset();
    for (const Library& library : {TheLibraries().parser, TheLibraries().algo}) {
      Require(library.opened == 0 && library.objects == 0, "all is released");
    }
  }
  Session(const Session&) = delete;
  Session& operator=(const Session&) = delete;

  void Run() {
    if (!input_.Seldom()) Init();
    for (int step = 0; step < kMaxSteps && !input_.Done(); ++step) {
      constexpr std::array<void (Session::*)(), 8> kSteps = {
          &Session::Process, &Session::Set,     &Session::Set,  &Session::Get,
          &Session::Process, &Session::Process, &Session::Edit, &Session::StartOrStop};
      (this->*input_.OneOf(kSteps))();
      RequireNeedsUpdate();
    }
  }

 private:
  void StartOrStop() {
    const size_t choice = input_.Below(4);
    if (choice != 0) Check(plugin_->DeInit(), model_.DeInit(), "result of DeInit");
    if (choice != 1 && inits_ < kMaxInits) Init();
  }

  void Init() {
    ++inits_;
    Libraries& script = TheLibraries();
    for (Library* const library : {&script.parser, &script.algo}) {
      library->lacks = static_cast<Library::Lack>(input_.Near(0) % 4);
      library->init_result = input_.Result();
    }
    script.list_result = input_.Result();
    script.modes = (input_.Byte() + 1U) % 4;
    script.asked = 1;
    Check(plugin_->Init("panel"), model_.Init(), "result of Init");
  }

  // An envelope around `record`, which is out of reach where the length is wrong.
  VcPayload Wrap(uint32_t prop, uint32_t len, void* record) {
    VcPayload envelope = {
        .version = input_.Near(24), .len = input_.Near(len), .prop = prop, .payload = record};
    if (envelope.len != len) envelope.payload = reinterpret_cast<void*>(8);
    if (input_.Seldom()) envelope.payload = nullptr;
    return envelope;
  }

  void ScriptAnswer(uint32_t asked) {
    Libraries& script = TheLibraries();
    script.asked = asked;
    script.result = input_.Result();
    script.blocks.clear();
    const size_t blocks = input_.Below(6);
    for (size_t i = 0; i < blocks; ++i) script.blocks.push_back(ReadBlock(&input_));
    for (int& result : script.merge_results) result = input_.Result();
  }

  void Set() {
    constexpr std::array<uint32_t, 6> kEntries = {1024, 1, 257, 1023, 0, 1025};
    velaricolor::ColorTransformMatrix transform;
    velaricolor::PostBlendHwConfig dimensions;
    velaricolor::PccPostBlendConfig ltm;
    double dimming = 0;
    VcPayload payload;
    const uint32_t prop = input_.Near(input_.OneOf(kProps));
    if (prop == 5) {
      transform.version = input_.Near(68);
      for (size_t changes = input_.Below(17); changes > 0; --changes) {
        transform.matrix.at(input_.Below(16)) = static_cast<float>(input_.Number());
      }
      payload = Wrap(prop, 68, &transform);
    } else if (prop >= 6 && prop <= 8) {
      dimensions.num_of_entries = input_.Near(input_.OneOf(kEntries));
      dimensions.attributes.resize(input_.Below(3));
      TheLibraries().asked = prop;
      TheLibraries().entries = dimensions.num_of_entries;
      TheLibraries().result = input_.Result();
      payload = Wrap(prop, 40, &dimensions);
    } else if (prop == 13) {
      ltm.version = input_.Near(280);
      ltm.enable = input_.Below(2) == 0;
      ltm.coeffs = input_.Pcc();
      payload = Wrap(prop, 280, &ltm);
    } else if (prop == 2055) {
      dimming = input_.Number();
      payload = Wrap(prop, 8, &dimming);
    } else {
      payload = Wrap(prop, input_.Byte(), reinterpret_cast<void*>(8));
    }
    Check(plugin_->SetProperty(payload), model_.SetProperty(payload), "result of SetProperty");
  }

  void Get() {
    std::vector<std::string> names(1);
    velaricolor::ColorModeList modes;
    modes.modes.resize(5);
    const bool stale = input_.Below(2) == 0;
    bool flag = stale;
    size_t list = 0;
    VcPayload payload;
    const uint32_t prop = input_.Near(input_.OneOf(kProps));
    if (prop == 1) {
      modes.version = input_.Near(96);
      payload = Wrap(prop, 32, &modes);
    } else if (prop == 14) {
      list = input_.Below(lists_.size());
      ScriptAnswer(12);
      payload = Wrap(prop, 32, &lists_[list]);
    } else if (prop == 2048) {
      payload = Wrap(prop, 24, &names);
    } else {
      payload = Wrap(prop, 1, &flag);
    }
    VcPayload* const envelope = input_.Seldom() ? nullptr : &payload;
    const int expected = model_.GetProperty(envelope, &expected_[list]);
    Check(plugin_->GetProperty(envelope), expected, "result of GetProperty");

    const auto answered = [&](uint32_t id) { return expected == 0 && prop == id; };
    const bool answer = answered(2) ? model_.NeedsUpdate() : answered(2054);
    const bool any = answered(2) || answered(9) || answered(2054);
    Require(flag == (any ? answer : stale), "flag");
    Require(names.size() == (answered(2048) ? 3 : 1), "number of names");
    Require(modes.modes.size() == (answered(1) ? model_.Modes() : 5), "number of modes");
  }

  void Process() {
    velaricolor::ModeRenderInputParams request;
    const uint32_t op = input_.Near(input_.Below(4) == 3 ? 1 : 0);
    const size_t list = input_.Below(lists_.size());
    request.version = input_.Near(2912);
    request.mode.label = "label";
    request.aux_data.fill(input_.Byte());
    ScriptAnswer(op);
    const VcPayload in = Wrap(0, 2912, &request);
    VcPayload out = Wrap(0, 32, &lists_[list]);
    VcPayload* const output = input_.Seldom() ? nullptr : &out;
    const int expected = model_.ProcessOps(op, in, output, &expected_[list]);
    Check(plugin_->ProcessOps(static_cast<velaricolor::VcOps>(op), in, output), expected,
          "result of ProcessOps");
  }

  // What hosts do to their lists between calls.
  void Edit() {
    const size_t list = input_.Below(lists_.size());
    velaricolor::HwConfigOutputParams& params = lists_[list];
    List& expected = expected_[list];
    const size_t choice = input_.Below(5);
    if (choice == 0) {
      params.payloads.clear();
      expected.blocks.clear();
    } else if (choice == 1) {
      expected.blocks.push_back(ReadBlock(&input_));
      params.payloads.push_back(ToPayload<velaricolor::HostSide>(expected.blocks.back()));
    } else if (choice == 2 && !expected.blocks.empty()) {
      params.payloads.back().payload.reset();
      expected.blocks.back().content.reset();
    } else if (choice == 3) {  // the copy shares the records
      lists_[1 - list] = params;
      expected_[1 - list] = expected;
    } else {
      params.version = expected.version = input_.Near(32);
    }
  }

  void Check(int result, int expected, const char* what) {
    Require(result == expected, what);
    Libraries& libraries = TheLibraries();
    Require(libraries.calls == model_.Calls(), "number of calls into the libraries");
    for (const auto& record : libraries.answered) Require(record.expired(), "records are dropped");
    libraries.answered.clear();
    libraries.merges = 0;
    for (size_t i = 0; i < lists_.size(); ++i) RequireSame(lists_[i], expected_[i]);
  }

  void RequireNeedsUpdate() {
    bool flag = !model_.NeedsUpdate();
    VcPayload payload = {.len = 1, .prop = velaricolor::kVcNeedsUpdate, .payload = &flag};
    const int expected = model_.GetProperty(&payload, nullptr);
    Require(plugin_->GetProperty(&payload) == expected, "result of kVcNeedsUpdate");
    Require((flag == model_.NeedsUpdate()) == (expected == 0), "needs update");
  }

  Input& input_;
  std::unique_ptr<velaricolor::VcPostBlendInterface> plugin_;
  Model model_;
  int inits_ = 0;
  std::array<velaricolor::HwConfigOutputParams, 2> lists_;
  std::array<List, 2> expected_;
};

}  // namespace
}  // namespace zeltarn::fuzz

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  zeltarn::fuzz::Input input(data, size);
  const int major = static_cast<int>(input.Near(2));
  const int minor = static_cast<int>(input.Near(0));
  std::unique_ptr<velaricolor::VcPostBlendInterface> plugin(GetVcPostBlendInterface(major, minor));
  zeltarn::fuzz::Require((plugin != nullptr) == (major == 2 && minor == 0), "factory's answer");
  if (plugin != nullptr) zeltarn::fuzz::Session(&input, std::move(plugin)).Run();
  return 0;
}
