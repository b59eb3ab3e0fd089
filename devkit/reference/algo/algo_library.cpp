// SPDX-License-Identifier: Apache-2.0

// The algorithm library's object and factory.
#include "bridge/tarn_intf.h"
#include "devkit/reference/envelope.h"
#include "devkit/reference/pcc_polynomial.h"
#include "interface/result_codes.h"
#include "pcc/pcc_merge.h"

namespace tarn::reference {
namespace {

using velaricolor::kErrInvalid;
using velaricolor::kErrUnsupported;
using velaricolor::kOk;

constexpr const char* kTag = "TARN-ALGO";

int Refuse(const char* reason, int code) {
  LogError(kTag, reason);
  return code;
}

int ResultOf(ComposeError error) {
  switch (error) {
    case ComposeError::kNone:
      return kOk;
    case ComposeError::kNotFinite:
      return Refuse("PCC merge: a coefficient is not finite", kErrInvalid);
    case ComposeError::kNotRepresentable:
      return Refuse("PCC merge: the result has terms that the PCC block lacks", -EDOM);
    case ComposeError::kOutOfRange:
      return Refuse("PCC merge: a coefficient is out of range", -ERANGE);
  }
  return kErrInvalid;
}

// Init's text has no meaning here.
class AlgoLibrary : public TarnAlgoIntf {
 public:
  int Init(const std::string& /*arg*/) override {
    initialised_ = true;
    return kOk;
  }

  int DeInit() override {
    initialised_ = false;
    return kOk;
  }

  int SetProperty(const TarnPayload& /*payload*/) override { return kErrUnsupported; }
  int GetProperty(TarnPayload* /*payload*/) override { return kErrUnsupported; }

  int ProcessOps(ZelOps op, const TarnPayload& in, TarnPayload* out) override {
    if (!initialised_) return Refuse("not initialised", kErrInvalid);
    if (op != kZelPccMerge) return Refuse("unknown operation", kErrUnsupported);
    const auto* operands = RecordOf<const PccMergeInput>(&in, kTag);
    auto* merged = RecordOf<PccMergeOutput>(out, kTag);
    if (operands == nullptr || merged == nullptr) return kErrInvalid;
    return ResultOf(Compose(operands->trans, operands->active, &merged->result));
  }

 private:
  bool initialised_ = false;
};

}  // namespace
}  // namespace tarn::reference

extern "C" __attribute__((visibility("default"))) tarn::TarnAlgoIntf* GetTarnAlgoInterface(
    int major_version, int minor_version) {
  if (major_version != 2 || minor_version != 0) return nullptr;
  return new tarn::reference::AlgoLibrary;
}
