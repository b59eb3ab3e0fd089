// SPDX-License-Identifier: Apache-2.0

// The plug-in object.
#pragma once

#include <condition_variable>
#include <cstdint>
#include <exception>
#include <map>
#include <memory>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

#include "bridge/library_handle.h"
#include "bridge/tarn_intf.h"
#include "convert/hw_config_payload.h"
#include "handlers/post_blend_hw_config.h"
#include "interface/vc_post_blend_interface.h"
#include "modes/color_mode.h"
#include "modes/mode_op_params.h"
#include "pcc/pcc_config.h"
#include "plugin/log.h"
#include "plugin/recent_lookup.h"

namespace velaricolor {

// Its members are defined in the folder of their subject: bridge/ (start-up and
// libraries), modes/, convert/, pcc/ and handlers/.
//
// Everything that a call reaches runs under lock_; constructor and destructor take
// no lock. thread_handler and what it calls (StartUp, FetchModesList,
// LoadTarnAlgoLib) run on the start-up thread while Init holds lock_ and waits. No
// member is atomic: that thread is joined before Init reads on.
class ZelTarnImpl final : public VcPostBlendInterface {
 public:
  // Loads nothing, starts nothing, logs nothing.
  ZelTarnImpl();
  ~ZelTarnImpl() override;
  ZelTarnImpl(const ZelTarnImpl&) = delete;
  ZelTarnImpl& operator=(const ZelTarnImpl&) = delete;

  int Init(const std::string& arg) override;
  int DeInit() override;
  int SetProperty(const VcPayload& payload) override;
  int GetProperty(VcPayload* payload) override;
  int ProcessOps(VcOps op, const VcPayload& in, VcPayload* out) override;

  // The one version rule for records: null, or another version than that of T, is
  // refused with -22 before any other field is read.
  template <typename T>
  static int VersionCheck(const T* p);

 private:
  using SetPropFunc = int (ZelTarnImpl::*)(const VcPayload&);
  using GetPropFunc = int (ZelTarnImpl::*)(VcPayload*);
  using OpsFunc = int (ZelTarnImpl::*)(const VcPayload&, VcPayload*);
  using HwConfigConverter = int (ZelTarnImpl::*)(const tarn::HwConfigPayload&,
                                                 velaricolor::HwConfigPayload*);
  using SetPropFuncs = std::map<VcProperty, SetPropFunc>;
  using GetPropFuncs = std::map<VcProperty, GetPropFunc>;
  using OpsFuncs = std::map<VcOps, OpsFunc>;
  using HwConfigConverters = std::map<std::string, HwConfigConverter>;

  // bridge/
  void ReleaseLibraryObjects();
  int RunStartUpThread(const std::string& arg);
  static void thread_handler(ZelTarnImpl* self, const std::string& arg);
  void StartUp(const std::string& arg);
  void FetchModesList();
  int LoadTarnAlgoLib(const std::string& arg);

  // modes/
  int GetModesList(VcPayload* payload);
  int ProcessModeRenderIntent(const VcPayload& in, VcPayload* out);
  int ProcessModeSwAssets(const VcPayload& in, VcPayload* out);
  static int CheckModeRecords(const VcPayload& in, const VcPayload& out, const char* function);
  // What a mode operation exchanges with the parser. An answer may point into its
  // request, so both live until the operation ends, the request longer.
  struct ParserRecords {
    tarn::ModeRenderInputParams request;  // blank but for aux_data, which is copied whole
    tarn::HwConfigOutputParams answer;
  };
  int AskModeParser(tarn::ZelOps op, const ModeRenderInputParams& request, const char* function,
                    ParserRecords* records);
  static int ConvertModeRenderInputParams(const velaricolor::ModeRenderInputParams& in,
                                          tarn::ModeRenderInputParams* out);
  int ConvertHwConfigOutputParams(const tarn::HwConfigOutputParams& in,
                                  velaricolor::HwConfigOutputParams* out);
  int ConvertNew(HwConfigConverter converter, const tarn::HwConfigPayload& payload, size_t answered,
                 velaricolor::HwConfigOutputParams* out);

  // convert/
  static HwConfigConverters MakeConverterTable();
  int ConvertPostBlendGamutPayload(const tarn::HwConfigPayload& in,
                                   velaricolor::HwConfigPayload* out);
  int ConvertPostBlendInvGammaPayload(const tarn::HwConfigPayload& in,
                                      velaricolor::HwConfigPayload* out);
  int ConvertPostBlendGammaPayload(const tarn::HwConfigPayload& in,
                                   velaricolor::HwConfigPayload* out);
  int ConvertPostBlendPCCPayload(const tarn::HwConfigPayload& in,
                                 velaricolor::HwConfigPayload* out);
  int ConvertPostBlendPaPayload(const tarn::HwConfigPayload& in, velaricolor::HwConfigPayload* out);
  int ConvertPostBlendDEPayload(const tarn::HwConfigPayload& in, velaricolor::HwConfigPayload* out);
  int ConvertPostBlendDitherPayload(const tarn::HwConfigPayload& in,
                                    velaricolor::HwConfigPayload* out);
  int ConvertPostBlendPaDitherPayload(const tarn::HwConfigPayload& in,
                                      velaricolor::HwConfigPayload* out);
  int ConvertPostBlendHdrBlobPayload(const tarn::HwConfigPayload& in,
                                     velaricolor::HwConfigPayload* out);
  int ConvertPostBlendGameBlobPayload(const tarn::HwConfigPayload& in,
                                      velaricolor::HwConfigPayload* out);

  // pcc/
  int ApplyColorTransform(bool enable, const pcc_coeff_data* pcc, HwConfigOutputParams* out);
  void ColorIntfPCCMultiply(const pcc_coeff_data* pcc_trans, const pcc_coeff_data* pcc_active,
                            pcc_coeff_data* pcc_out);
  static void Color3x3PCCMultiply(const pcc_coeff_data* pcc_trans, const pcc_coeff_data* pcc_active,
                                  pcc_coeff_data* pcc_out);
  int ApplyPccAttenuationFactor(HwConfigOutputParams* out) const;

  // handlers/
  struct DimensionBlock;  // what tells one dimension setter from another
  int SetColorTransform(const VcPayload& payload);
  int SetPostBlendGamutConfig(const VcPayload& payload);
  int SetPostBlendGammaConfig(const VcPayload& payload);
  int SetPostBlendInvGammaConfig(const VcPayload& payload);
  int SetDimensions(const DimensionBlock& block, const VcPayload& payload);
  int NotifyDisplayCalibrationMode(const VcPayload& payload);
  int SetLtmPccConfig(const VcPayload& payload);
  int SetDimmingPcc(const VcPayload& payload);
  int GetNeedsUpdate(VcPayload* payload);
  int GetSupportTonemap(VcPayload* payload);
  int GetPbDitheHwConfig(VcPayload* payload);
  int GetSupportHwAssets(VcPayload* payload);
  int GetDimmingSupport(VcPayload* payload);

  // Members die from the last to the first: settings and tables, then the
  // algorithm library, then the mode parser's. The destructor has destroyed the
  // two interface objects before.
  const std::string mode_parser_lib_name_ = tarn::kModeParserLibrary;
  const std::string algo_lib_name_ = tarn::kTarnAlgoLibrary;
  const std::string mode_parser_intf_symbol_ = tarn::kModeParserSymbol;
  const std::string algo_intf_symbol_ = tarn::kTarnAlgoSymbol;
  LibraryHandle mode_parser_lib_handle_;
  LibraryHandle algo_lib_handle_;

  const SetPropFuncs set_prop_funcs_;
  const GetPropFuncs get_prop_funcs_;
  const OpsFuncs ops_funcs_;
  const HwConfigConverters hw_config_converters_;

  std::mutex lock_;
  bool init_done_ = false;
  bool algo_init_done_ = false;  // merging is available
  ColorModeList color_mode_list_;
  std::unique_ptr<tarn::ModeParserIntf> mode_parser_intf_;  // null: no modes
  std::unique_ptr<tarn::TarnAlgoIntf> algo_intf_;

  bool needs_update_ = false;  // a colour setting changed since the last render intent
  pcc_coeff_data color_transform_pcc_ = {};
  double pcc_attenuation_factor_ = 1.0;
  bool color_transform_active_ = false;  // the colour transform isn't the identity
  PostBlendHwConfig inverse_gamma_hw_config_;
  PostBlendHwConfig gamma_hw_config_;
  PostBlendHwConfig gamut_hw_config_;
  bool last_ltm_pcc_enable_ = false;  // as of the last render intent
  PccPostBlendConfig ltm_pcc_config_ = {.coeffs = {}};

  std::thread mode_parser_thread_;
  // Held by that thread for all its work, and by Init while it waits and joins;
  // taken after lock_.
  std::mutex mode_parser_mutex_;
  std::condition_variable mode_parser_cv_;  // with mode_parser_done_: the work has ended
  int mode_parser_status_ = kErrInvalid;
  bool mode_parser_done_ = false;
  std::exception_ptr mode_parser_exception_;  // what left the parser on that thread

  // The entries of the tables that were used last. A parser answers with the same blocks
  // in the same order for every mode, so those of converters go by place in the answer.
  // Operations have none: their look-up costs nothing beside the operation.
  RecentEntry<SetPropFuncs> recent_setter_{set_prop_funcs_};
  RecentEntry<GetPropFuncs> recent_getter_{get_prop_funcs_};
  std::vector<RecentEntry<HwConfigConverters>> recent_converters_ =
      std::vector(hw_config_converters_.size(), RecentEntry(hw_config_converters_));
};

template <typename T>
int ZelTarnImpl::VersionCheck(const T* p) {
  if (p == nullptr) {
    ZEL_LOGE("Invalid params : p %pK", static_cast<const void*>(p));
    return kErrInvalid;
  }
  if (p->version != T::kVersion) {
    ZEL_LOGE("invalid version %u expected %u", p->version, T::kVersion);
    return kErrInvalid;
  }
  return kOk;
}

}  // namespace velaricolor
