// SPDX-License-Identifier: Apache-2.0
#include "fuzz/libraries.h"

#include <dlfcn.h>

#include "bridge/tarn_intf.h"
#include "handlers/post_blend_hw_config.h"
#include "pcc/pcc_merge.h"

namespace zeltarn::fuzz {

Libraries& TheLibraries() {
  static Libraries libraries;
  return libraries;
}

pcc_coeff_data Merged(const pcc_coeff_data& trans, const pcc_coeff_data& active) {
  pcc_coeff_data merged = active;
  merged.reserved[7] = 7;
  for (size_t term = 0; term < zeltarn::kPccTerms; ++term) {
    merged.r[term] += 2.0 * trans.r[term];
    merged.g[term] += 2.0 * trans.g[term];
    merged.b[term] += 2.0 * trans.b[term];
  }
  return merged;
}

namespace {

// Both libraries in one. The records they are handed must be as promised.
template <typename Interface>
class Fake final : public Interface {
 public:
  explicit Fake(Library* library) : library_(*library) { ++library_.objects; }
  ~Fake() override { --library_.objects; }

  int Init(const std::string& /*arg*/) override {
    ++TheLibraries().calls;
    return library_.init_result;
  }

  int DeInit() override {
    ++TheLibraries().calls;
    return -1;  // ignored
  }

  int SetProperty(const tarn::TarnPayload& payload) override {
    const uint32_t version = payload.prop == 6 ? 117936 : 88;
    const auto& told = Record<tarn::PostBlendHwConfig>(payload, version);
    Require(told.num_of_entries == TheLibraries().entries, "entries that the parser is told");
    return TheLibraries().result;
  }

  int GetProperty(tarn::TarnPayload* payload) override {
    if (payload->prop != 1) return Answer(&Record<tarn::HwConfigOutputParams>(*payload, 32));
    Record<tarn::ColorModeList>(*payload, 96).modes.resize(TheLibraries().modes);
    return TheLibraries().list_result;
  }

  int ProcessOps(tarn::ZelOps op, const tarn::TarnPayload& in, tarn::TarnPayload* out) override {
    if (op == tarn::kZelPccMerge) {
      const auto& operands = Record<tarn::PccMergeInput>(in, 552, 0);
      // Also where the merge fails: nobody may use it then.
      static_cast<tarn::PccMergeOutput*>(out->payload)->result =
          Merged(operands.trans, operands.active);
      return TheLibraries().merge_results.at(TheLibraries().merges++);
    }
    Require(TheLibraries().asked == static_cast<uint32_t>(op), "operation of the parser");
    Require(Record<tarn::ModeRenderInputParams>(in, 2912, 0).mode.label.empty(), "no label");
    return Answer(static_cast<tarn::HwConfigOutputParams*>(out->payload));
  }

 private:
  template <typename T>
  static T& Record(const tarn::TarnPayload& envelope, uint32_t version,
                   uint32_t prop = TheLibraries().asked) {
    ++TheLibraries().calls;
    Require(envelope.version == 24 && envelope.len == sizeof(T) && envelope.prop == prop,
            "envelope towards a library");
    T& record = *static_cast<T*>(envelope.payload);
    Require(record.version == version, "version of a record towards a library");
    return record;
  }

  static int Answer(tarn::HwConfigOutputParams* answer) {
    for (const Block& block : TheLibraries().blocks) {
      answer->payloads.push_back(ToPayload<tarn::LibrarySide>(block));
      TheLibraries().answered.emplace_back(answer->payloads.back().payload);
    }
    return TheLibraries().result;
  }

  Library& library_;
};

template <typename Interface, Library Libraries::*library>
Interface* Make(int major_version, int minor_version) {
  Require(major_version == 2 && minor_version == 0, "version asked of a library");
  Library* const made = &(TheLibraries().*library);
  return made->lacks == Library::kObject ? nullptr : new Fake<Interface>(made);
}

}  // namespace

// The plug-in's calls of the loader are compiled to these. A handle is a library.
extern "C" void* FakeDlopen(const char* file, int mode);
extern "C" void* FakeDlsym(void* handle, const char* symbol);
extern "C" int FakeDlclose(void* handle);

void* FakeDlopen(const char* file, int mode) {
  const bool parser = std::strcmp(file, "libtarn-json-mode-parser.so") == 0;
  Require(parser || std::strcmp(file, "libtarn-algo.so") == 0, "library that is opened");
  Library& library = parser ? TheLibraries().parser : TheLibraries().algo;
  if (library.lacks == Library::kFile) return nullptr;
  Require(mode == RTLD_NOW && ++library.opened == 1, "opened at once and once");
  return &library;
}

void* FakeDlsym(void* handle, const char* symbol) {
  if (static_cast<Library*>(handle)->lacks == Library::kFactory) return nullptr;
  const bool parser = handle == &TheLibraries().parser;
  Require(std::strcmp(symbol, parser ? "GetTarnZelInterface" : "GetTarnAlgoInterface") == 0,
          "symbol that is asked for");
  return parser ? reinterpret_cast<void*>(&Make<tarn::ModeParserIntf, &Libraries::parser>)
                : reinterpret_cast<void*>(&Make<tarn::TarnAlgoIntf, &Libraries::algo>);
}

int FakeDlclose(void* handle) {
  auto& library = *static_cast<Library*>(handle);
  Require(library.objects == 0, "no object outlives its library");
  Require(--library.opened == 0, "closed once");
  return 0;
}

}  // namespace zeltarn::fuzz
