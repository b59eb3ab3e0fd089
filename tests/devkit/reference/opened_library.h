// A library opened like the plug-in does, and one object of it.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "bridge/tarn_intf.h"
#include "convert/hw_config_payload.h"
#include "modes/mode_op_params.h"

template <typename Object>
class OpenedLibrary {
 public:
  using Factory = Object* (*)(int, int);

  OpenedLibrary(const char* path, const char* symbol)
      : handle_(dlopen(path, RTLD_NOW), &dlclose),
        factory_(reinterpret_cast<Factory>(dlsym(handle_.get(), symbol))) {}

  std::unique_ptr<Object> New(int major = 2, int minor = 0) const {
    return std::unique_ptr<Object>(factory_(major, minor));
  }

 private:
  std::unique_ptr<void, int (*)(void*)> handle_;
  Factory factory_;
};

inline const OpenedLibrary<tarn::ModeParserIntf>& ModeParserLibrary() {
  static const OpenedLibrary<tarn::ModeParserIntf> library(MODE_PARSER, "GetTarnZelInterface");
  return library;
}

// The typed record of the block `name`. Without it the test has failed.
template <typename T>
const T* BlockOf(const tarn::HwConfigOutputParams& answer, const std::string& name) {
  for (const tarn::HwConfigPayload& block : answer.payloads) {
    if (block.hw_block != name) continue;
    const T* record = static_cast<const T*>(block.payload.get());
    EXPECT_EQ(block.len, sizeof(T)) << name;
    EXPECT_EQ(record->version, sizeof(T)) << name;
    return record;
  }
  throw std::runtime_error("no block " + name);
}

// Result of the operation `op` for the mode with the ids of `mode`.
inline int Ask(tarn::ModeParserIntf* parser, tarn::ZelOps op, const tarn::ColorMode& mode,
               tarn::HwConfigOutputParams* answer) {
  tarn::ModeRenderInputParams request = {};
  request.mode.gamut = mode.gamut;
  request.mode.gamma = mode.gamma;
  request.mode.intent = mode.intent;
  const tarn::TarnPayload in = tarn::Wrap(&request);
  tarn::TarnPayload out = tarn::Wrap(answer);
  return parser->ProcessOps(op, in, &out);
}

inline std::vector<tarn::ColorMode> ModesOf(tarn::ModeParserIntf* parser) {
  tarn::ColorModeList list;
  tarn::TarnPayload payload = tarn::Wrap(&list, tarn::kZelModesList);
  EXPECT_EQ(parser->GetProperty(&payload), 0);
  return list.modes;
}
