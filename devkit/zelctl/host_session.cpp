// SPDX-License-Identifier: Apache-2.0
#include "devkit/zelctl/host_session.h"

#include <dlfcn.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <utility>

#include "convert/pa_de_config.h"
#include "devkit/zelctl/blocks/block_record.h"
#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"
#include "handlers/post_blend_hw_config.h"
#include "pcc/pcc_config.h"
#include "plugin/block_names.h"

namespace zelctl {
namespace {

using velaricolor::VcProperty;

constexpr const char* kFactorySymbol = "GetVcPostBlendInterface";
constexpr const char* kLogLevelProperty = "vendor.display.zelloglevel";

const char* Name(VcProperty property) {
  switch (property) {
    case velaricolor::kVcModesList:
      return "kVcModesList";
    case velaricolor::kVcNeedsUpdate:
      return "kVcNeedsUpdate";
    case velaricolor::kVcColorTransform:
      return "kVcColorTransform";
    case velaricolor::kVcPostBlendGamutHwConfig:
      return "kVcPostBlendGamutHwConfig";
    case velaricolor::kVcPostBlendGammaHwConfig:
      return "kVcPostBlendGammaHwConfig";
    case velaricolor::kVcPostBlendInverseGammaHwConfig:
      return "kVcPostBlendInverseGammaHwConfig";
    case velaricolor::kVcSupportToneMap:
      return "kVcSupportToneMap";
    case velaricolor::kVcDisplayCalibrationMode:
      return "kVcDisplayCalibrationMode";
    case velaricolor::kVcLtmPccConfig:
      return "kVcLtmPccConfig";
    case velaricolor::kVcPbDitherHwConfig:
      return "kVcPbDitherHwConfig";
    case velaricolor::kVcSupportHwAssets:
      return "kVcSupportHwAssets";
    case velaricolor::kVcDimmingSupport:
      return "kVcDimmingSupport";
    case velaricolor::kVcDimmingPcc:
      return "kVcDimmingPcc";
  }
  return "?";
}

const char* Name(velaricolor::VcOps op) {
  return op == velaricolor::kVcModeRenderIntent ? "kVcModeRenderIntent" : "kVcModeSwAssets";
}

void Check(const std::string& call, int code) {
  if (code != velaricolor::kOk) throw CallError(call, code);
}

void* OpenPlugin(const std::string& path) {
  RequireLibrary(path, "plug-in");
  // Absolute: a bare file name would send the loader down its search path.
  void* library = dlopen(std::filesystem::absolute(path).c_str(), RTLD_NOW | RTLD_LOCAL);
  if (library == nullptr) throw UsageError("can't load plug-in " + std::string(dlerror()));
  return library;
}

velaricolor::VcPostBlendInterface* Create(void* library, const std::string& path) {
  void* symbol = dlsym(library, kFactorySymbol);
  if (symbol == nullptr) {
    throw UsageError(path + " is no plug-in: it does not export " + kFactorySymbol);
  }
  auto* plugin = reinterpret_cast<decltype(&GetVcPostBlendInterface)>(symbol)(2, 0);
  if (plugin == nullptr) {
    throw std::runtime_error(std::string(kFactorySymbol) + "(2, 0) gave no object");
  }
  return plugin;
}

template <typename Numbers>
bool AllFinite(const Numbers& numbers) {
  return std::all_of(numbers.begin(), numbers.end(), [](double n) { return std::isfinite(n); });
}

bool HoldsNoNumber(const velaricolor::HwConfigPayload& payload) {
  if (payload.hw_block == velaricolor::kPostBlendPCC) {
    const auto* pcc = RecordOf<velaricolor::PccPostBlendConfig>(payload);
    return pcc != nullptr &&
           !(AllFinite(pcc->coeffs.r) && AllFinite(pcc->coeffs.g) && AllFinite(pcc->coeffs.b));
  }
  if (payload.hw_block != velaricolor::kPostBlendPa) return false;
  const auto* pa = RecordOf<velaricolor::PaPostBlendConfig>(payload);
  if (pa == nullptr) return false;
  return !AllFinite(pa->f_params) ||
         !std::all_of(pa->sub_params.begin(), pa->sub_params.end(),
                      [](const auto& sub) { return AllFinite(sub.floats); });
}

}  // namespace

void HostSession::LibraryCloser::operator()(void* handle) const { dlclose(handle); }

std::string InitText(const SessionOptions& options) {
  if (options.arg) return *options.arg;
  RequireReadable(options.panel, "panel");
  return options.panel;
}

HostSession::HostSession(const SessionOptions& options)
    : problems_(options.problems), libraries_(options.libraries, options.plugin) {
  const std::string text = InitText(options);
  for (const auto& [file, what] : {std::pair(options.libraries.parser, "parser"),
                                   {options.libraries.algo, "algorithm library"}}) {
    if (file) RequireLibrary(*file, what);
  }
  // Read while the library loads. An environment that asks for more is kept.
  const std::string level = std::to_string(options.log_level.value_or(0));
  setenv(kLogLevelProperty, level.c_str(), options.log_level ? 1 : 0);
  library_.reset(OpenPlugin(options.plugin));
  plugin_.reset(Create(library_.get(), options.plugin));
  Initialise(options, text);
}

void HostSession::Initialise(const SessionOptions& options, const std::string& text) {
  const int code = plugin_->Init(text);
  const std::string failure = libraries_.ParserFailure();
  if (code != velaricolor::kOk && !failure.empty()) {
    throw std::runtime_error(failure);
  }
  Check("Init(\"" + text + "\")", code);
  const std::string why = libraries_.AlgoFailure();
  if (why.empty() || !libraries_.AlgoIsThere()) return;
  if (options.libraries.algo) throw std::runtime_error(why);
  Tell(why);
}

void HostSession::Tell(const std::string& problem) {
  std::cerr << "zelctl: " << problem << '\n';
  if (problems_ != nullptr) problems_->push_back(problem);
}

void HostSession::TellProblems() {
  for (const std::string& problem : libraries_.TakeProblems()) Tell(problem);
}

HostSession::~HostSession() { plugin_->DeInit(); }

void HostSession::Notify(VcProperty property) {
  SetPayload(property, {.prop = static_cast<uint32_t>(property)});
}

void HostSession::SetPayload(VcProperty property, const velaricolor::VcPayload& payload) {
  if (payload.len == sizeof(velaricolor::PostBlendHwConfig)) {
    const auto& size = *static_cast<const velaricolor::PostBlendHwConfig*>(payload.payload);
    libraries_.SetEntries(property, size.num_of_entries);
  }
  Check("SetProperty(" + std::string(Name(property)) + ")", plugin_->SetProperty(payload));
}

void HostSession::GetPayload(VcProperty property, velaricolor::VcPayload* payload) {
  const int code = plugin_->GetProperty(payload);
  TellProblems();
  Check("GetProperty(" + std::string(Name(property)) + ")", code);
}

void HostSession::Process(velaricolor::VcOps op, const velaricolor::ColorMode& mode,
                          velaricolor::HwConfigOutputParams* out) {
  velaricolor::ModeRenderInputParams request = {
      .hw_assets = mode.hw_assets, .mode = mode, .aux_data = {}};
  const auto in = velaricolor::Wrap(&request);
  auto result = velaricolor::Wrap(out);
  const int code = plugin_->ProcessOps(op, in, &result);
  TellProblems();
  Check("ProcessOps(" + std::string(Name(op)) + ")", code);
  for (const auto& payload : out->payloads) {
    if (!HoldsNoNumber(payload)) continue;
    Tell("block " + payload.hw_block + " holds a number that is not finite");
  }
}

}  // namespace zelctl
