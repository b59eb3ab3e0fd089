#include "devkit/zelctl/host_session.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "devkit/zelctl/errors.h"
#include "devkit/zelctl/input.h"

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
  RequireReadable(path, "plug-in");
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

}  // namespace

void HostSession::LibraryCloser::operator()(void* handle) const { dlclose(handle); }

HostSession::HostSession(const SessionOptions& options) {
  RequireReadable(options.panel, "panel");
  if (options.log_level) {  // read while the library loads
    setenv(kLogLevelProperty, std::to_string(*options.log_level).c_str(), 1);
  }
  library_.reset(OpenPlugin(options.plugin));
  plugin_.reset(Create(library_.get(), options.plugin));
  Check("Init(\"" + options.panel + "\")", plugin_->Init(options.panel));
}

HostSession::~HostSession() { plugin_->DeInit(); }

void HostSession::Notify(VcProperty property) {
  SetPayload(property, {.prop = static_cast<uint32_t>(property)});
}

void HostSession::SetPayload(VcProperty property, const velaricolor::VcPayload& payload) {
  Check("SetProperty(" + std::string(Name(property)) + ")", plugin_->SetProperty(payload));
}

void HostSession::GetPayload(VcProperty property, velaricolor::VcPayload* payload) {
  Check("GetProperty(" + std::string(Name(property)) + ")", plugin_->GetProperty(payload));
}

void HostSession::Process(velaricolor::VcOps op, const velaricolor::ColorMode& mode,
                          velaricolor::HwConfigOutputParams* out) {
  velaricolor::ModeRenderInputParams request = {
      .hw_assets = mode.hw_assets, .mode = mode, .aux_data = {}};
  const auto in = velaricolor::Wrap(&request);
  auto result = velaricolor::Wrap(out);
  Check("ProcessOps(" + std::string(Name(op)) + ")", plugin_->ProcessOps(op, in, &result));
}

}  // namespace zelctl
