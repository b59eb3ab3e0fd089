// SPDX-License-Identifier: Apache-2.0

// An algorithm library that answers at once: the transform itself.

#include "bench/subject/reference_libraries.h"
#include "bridge/tarn_intf.h"
#include "pcc/pcc_merge.h"

namespace {

class BenchAlgo final : public tarn::TarnAlgoIntf {
 public:
  int Init(const std::string& arg) override { return arg == "no algo" ? -1 : 0; }
  int DeInit() override { return 0; }
  int SetProperty(const tarn::TarnPayload& /*payload*/) override { return 0; }
  int GetProperty(tarn::TarnPayload* /*payload*/) override { return 0; }

  int ProcessOps(tarn::ZelOps /*op*/, const tarn::TarnPayload& in,
                 tarn::TarnPayload* out) override {
    static_cast<tarn::PccMergeOutput*>(out->payload)->result =
        static_cast<const tarn::PccMergeInput*>(in.payload)->trans;
    return 0;
  }
};

}  // namespace

__attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(int major_version,
                                                                                int minor_version) {
  if (g_reference != nullptr) return g_reference->algo(major_version, minor_version);
  return new BenchAlgo;
}
