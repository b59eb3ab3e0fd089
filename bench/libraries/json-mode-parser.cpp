// SPDX-License-Identifier: Apache-2.0

// A mode parser that does nothing but hand out records built beforehand.

#include "bench/subject/allocation_count.h"
#include "bench/subject/answers.h"
#include "bench/subject/reference_libraries.h"
#include "bridge/tarn_intf.h"

namespace {

class BenchParser final : public tarn::ModeParserIntf {
 public:
  int Init(const std::string& /*arg*/) override { return 0; }
  int DeInit() override { return 0; }
  int SetProperty(const tarn::TarnPayload& /*payload*/) override { return 0; }

  int GetProperty(tarn::TarnPayload* payload) override {
    const UncountedAllocations uncounted;
    if (payload->prop == tarn::kZelModesList) {
      static_cast<tarn::ColorModeList*>(payload->payload)->modes = TheAnswers().modes;
    } else {
      static_cast<tarn::HwConfigOutputParams*>(payload->payload)->payloads = TheAnswers().blocks;
    }
    return 0;
  }

  int ProcessOps(tarn::ZelOps /*op*/, const tarn::TarnPayload& /*in*/,
                 tarn::TarnPayload* out) override {
    const UncountedAllocations uncounted;
    static_cast<tarn::HwConfigOutputParams*>(out->payload)->payloads = TheAnswers().blocks;
    return 0;
  }
};

}  // namespace

__attribute__((visibility("default"))) tarn::ModeParserIntf* GetTarnZelInterface(
    int major_version, int minor_version) {
  if (g_reference != nullptr) return g_reference->parser(major_version, minor_version);
  return new BenchParser;
}
