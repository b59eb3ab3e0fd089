// SPDX-License-Identifier: Apache-2.0

// A mode parser and an algorithm library in one, for the tests of zelctl validate:
// without a fault, but for the one that the environment variable FAULT names.
#include <dlfcn.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>

#include "bridge/tarn_intf.h"
#include "convert/dither_config.h"
#include "convert/gamut_gamma_config.h"
#include "convert/pa_de_config.h"
#include "handlers/post_blend_hw_config.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_arithmetic.h"
#include "pcc/pcc_merge.h"
#include "plugin/names.h"

namespace {

bool Has(const std::string& fault) {
  const char* chosen = std::getenv("FAULT");
  return chosen != nullptr && chosen == fault;
}

int calls = 0;

// Ends the process as the fault says that is named after what is going on.
void DieIfAsked(const std::string& place) {
  if (Has("crashes" + place)) std::raise(SIGSEGV);
  if (Has("aborts" + place)) std::abort();
  if (Has("hangs" + place)) std::this_thread::sleep_for(std::chrono::hours(1));
  if (Has("exits" + place)) std::exit(place.empty() ? 0 : 7);
  if (Has("_exits" + place)) _exit(0);
  if (Has("its child ends" + place) && fork() == 0) _exit(0);
  if (Has("closes files" + place)) {
    for (int file = 3; file < 64; ++file) close(file);
  }
}

// Writes the id of a process that never ends to the file that the environment names.
void StartAProcess() {
  const pid_t child = fork();
  if (child == 0) {
    for (;;) pause();
  }
  std::ofstream(std::getenv("PID_FILE")) << child;
}

template <typename T>
T* RecordIn(const tarn::TarnPayload& envelope) {
  return static_cast<T*>(envelope.payload);
}

// What both libraries do alike.
template <typename Interface>
class BadLibrary : public Interface {
 public:
  int Init(const std::string& /*arg*/) override {
    DieIfAsked("");
    if (Has("prints")) std::puts("hello");
    if (Has("hangs, having started a process")) {
      StartAProcess();
      for (;;) pause();
    }
    if (Has("prints and fails")) {
      std::cerr << "no licence for x" << std::endl;
      return -1;
    }
    if (Has("needs a neighbour") && dlopen("libneighbour.so", RTLD_NOW) == nullptr) return -2;
    if (Has("Init throws")) throw std::runtime_error("no panel");
    const bool again = std::getenv("STARTED") != nullptr;
    setenv("STARTED", "1", 1);
    return Has("Init fails") || (again && Has("starts once")) ? -5 : 0;
  }

  int DeInit() override {
    DieIfAsked(" in DeInit");
    if (ended_ && Has("ends once")) throw std::runtime_error("ended twice");
    ended_ = true;
    return -1;  // ignored
  }

 private:
  bool ended_ = false;
};

class BadParser : public BadLibrary<tarn::ModeParserIntf> {
 public:
  int SetProperty(const tarn::TarnPayload& payload) override {
    auto* config = RecordIn<tarn::PostBlendHwConfig>(payload);
    const zeltarn::TableDimensions size = {config->num_of_entries, config->bit_depth};
    if (Has("writes size")) config->num_of_entries = 0;
    if (Has("refuses sizes")) return -22;
    if (Has("forgets sizes")) return 0;
    if (payload.prop == tarn::kZelPostBlendInverseGammaHwConfig) igc_ = size;
    if (payload.prop == tarn::kZelPostBlendGammaHwConfig) gc_ = size;
    if (Has("sizes swapped")) std::swap(igc_, gc_);
    return 0;
  }

  int GetProperty(tarn::TarnPayload* payload) override {
    if (payload->prop == tarn::kZelPbDitherHwConfig) {
      if (Has("no dither")) return -95;
      auto* answer = RecordIn<tarn::HwConfigOutputParams>(*payload);
      Add(Has("unknown dither") ? "Dither" : "PostBlendDither",
          std::make_shared<tarn::DitherPostBlendConfig>(), answer);
      return 0;
    }
    auto* list = RecordIn<tarn::ColorModeList>(*payload);
    if (Has("writes list version")) list->version = 32;
    if (Has("no modes")) return 0;
    list->modes = {{.gamut = 1, .gamma = 1, .intent = 0, .label = "one"},
                   {.gamut = 2, .gamma = 1, .intent = 0, .label = "two"}};
    if (Has("ids twice")) list->modes[1].gamut = 1;
    if (Has("label twice")) list->modes[1].label = "one";
    if (Has("label empty")) list->modes[0].label = "";
    return Has("list fails") ? -5 : 0;
  }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    auto* request = RecordIn<tarn::ModeRenderInputParams>(in);
    auto* answer = RecordIn<tarn::HwConfigOutputParams>(*out);
    if (request->mode.gamut > 2 && !Has("any mode")) return -22;
    DieIfAsked(op == tarn::kZelModeSwAssets ? " in software assets" : " in a render intent");
    if (Has("slow")) std::this_thread::sleep_for(std::chrono::milliseconds(200));
    if (Has("writes request")) request->aux_word = 1;
    if (Has("writes envelope")) out->len = 0;
    if (Has("writes answer version")) answer->version = 56;
    if (op == tarn::kZelModeSwAssets) {
      if (Has("is killed")) std::raise(SIGKILL);
      return Has("assets fail") ? -5 : 0;
    }
    if (Has("render fails")) return -5;
    AddBlocks(request->mode.gamut, answer);
    Spoil(answer);
    return 0;
  }

 private:
  template <typename T>
  static void Add(const std::string& name, std::shared_ptr<T> record,
                  tarn::HwConfigOutputParams* answer) {
    answer->payloads.push_back({.hw_block = name, .payload = std::move(record), .len = sizeof(T)});
  }

  static std::shared_ptr<tarn::GammaPostBlendConfig> Table(const zeltarn::TableDimensions& size) {
    auto table = std::make_shared<tarn::GammaPostBlendConfig>();
    table->c0.assign(size.num_of_entries, 1);
    table->c0.back() = Has("code too large") ? 1U << size.bit_depth : Has("codes fall") ? 0 : 2;
    table->c1 = table->c2 = table->c0;
    if (Has("short list")) table->c2.pop_back();
    return table;
  }

  void AddBlocks(uint32_t gamut, tarn::HwConfigOutputParams* answer) const {
    Add("PostBlendIGC", Table(Has("refuses sizes") ? zeltarn::TableDimensions{1024, 8} : igc_),
        answer);
    Add("PostBlendGC", Table(gc_), answer);
    auto pcc = std::make_shared<tarn::PccPostBlendConfig>();
    pcc->coeffs.b[10] = Has("not a number") ? NAN : 1;
    Add("PostBlendPCC", pcc, answer);
    static const auto one = std::make_shared<tarn::DePostBlendConfig>();
    auto de = Has("one record") ? one : std::make_shared<tarn::DePostBlendConfig>();
    de->params[0] = Has("unsteady") ? static_cast<uint8_t>(++calls) : 0;
    if (Has("one record")) de->params[0] = static_cast<uint8_t>(gamut);
    Add("PostBlendDE", de, answer);
  }

  void Spoil(tarn::HwConfigOutputParams* answer) const {
    auto& last = answer->payloads.back();
    if (Has("entry version")) last.version = 55;
    if (Has("unknown name")) answer->payloads[1].hw_block = "Odd\n";
    if (Has("name twice")) answer->payloads.push_back(last);
    if (Has("no record")) last.payload = nullptr;
    if (Has("len")) last.len = 47;
    if (Has("record version")) *static_cast<uint32_t*>(last.payload.get()) = 47;
    if (Has("one thread") && std::this_thread::get_id() != made_by_) answer->payloads.clear();
  }

  zeltarn::TableDimensions igc_ = zeltarn::kDefaultInverseGamma;
  zeltarn::TableDimensions gc_ = zeltarn::kDefaultGamma;
  std::thread::id made_by_ = std::this_thread::get_id();
};

bool Same(const pcc_coeff_data& a, const pcc_coeff_data& b) {
  return a.r == b.r && a.g == b.g && a.b == b.b;
}

// Merges matrices, and anything with the identity.
class BadAlgo : public BadLibrary<tarn::TarnAlgoIntf> {
 public:
  int SetProperty(const tarn::TarnPayload& /*payload*/) override { return -95; }
  int GetProperty(tarn::TarnPayload* /*payload*/) override { return -95; }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    if (op != tarn::kZelPccMerge && !Has("any operation")) return -95;
    auto* operands = RecordIn<tarn::PccMergeInput>(in);
    auto* merged = RecordIn<tarn::PccMergeOutput>(*out);
    const int code = Merge(operands->trans, operands->active, &merged->result);
    if (Has("own reserved")) merged->result.reserved[7] = 0xff;
    if (Has("writes operands")) operands->active.g[2] = 7;
    if (Has("writes result version")) merged->version = 1;
    return code;
  }

 private:
  static int Merge(const pcc_coeff_data& trans, const pcc_coeff_data& active,
                   pcc_coeff_data* result) {
    const pcc_coeff_data identity = {.r = {0, 1}, .g = {0, 0, 1}, .b = {0, 0, 0, 1}};
    if (Same(active, identity) || Same(trans, identity)) {
      *result = Same(active, identity) ? trans : active;
      result->reserved = {};
      if (Has("identity scales")) result->g[2] *= 1.0001;
      return 0;
    }
    const bool exact = trans.r[10] == 0 && active.r[10] == 0 && !std::isnan(trans.g[2]);
    if (!exact && !Has("any merge")) return -33;
    const bool swapped = Has("wrong order");
    velaricolor::Multiply3x3(swapped ? active : trans, swapped ? trans : active, result);
    for (const auto row : {&pcc_coeff_data::r, &pcc_coeff_data::g, &pcc_coeff_data::b}) {
      if (!Has("offset lost")) (result->*row)[0] += (trans.*row)[0];
      if (Has("unsteady")) (result->*row)[0] += ++calls * 1e-14;
    }
    return 0;
  }
};

template <typename Interface, typename Library>
Interface* Make(int major, int minor) {
  const bool known = major == 2 && minor == 0;
  if (known) DieIfAsked(" in the factory");
  if (Has("no object")) return nullptr;
  return known || Has("any version") ? new Library : nullptr;
}

}  // namespace

__attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(int major,
                                                                                 int minor) {
  return Make<tarn::ModeParserIntf, BadParser>(major, minor);
}

__attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major,
                                                                                int minor) {
  return Make<tarn::TarnAlgoIntf, BadAlgo>(major, minor);
}
