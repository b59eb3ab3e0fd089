// SPDX-License-Identifier: Apache-2.0

// What the host's and the libraries' binaries rely on: the order of slots, the
// library's symbols.
#include <dlfcn.h>

#include <array>
#include <cstdio>

#include "tests/support/plugin_host.h"

using velaricolor::VcPayload;

namespace {

#ifdef __aarch64__
// Built with the options of the plug-in: signed return addresses, marked branch targets.
static_assert(__ARM_FEATURE_PAC_DEFAULT != 0 && __ARM_FEATURE_BTI_DEFAULT != 0);
#endif

void** SlotsOf(void* object) { return *static_cast<void***>(object); }

// Calls an operation as a separately built binary does: by the number of its slot.
template <typename Result = int, typename... Args>
__attribute__((no_sanitize("function"))) Result CallSlot(void* object, size_t slot, Args... args) {
  return reinterpret_cast<Result (*)(void*, Args...)>(SlotsOf(object)[slot])(object, args...);
}

class Boundary : public PluginTest {};

TEST_F(Boundary, HostFindsEveryOperationInItsSlot) {
  const PluginLibrary library;
  void* const object = library.Create().release();
  const std::string arg = "panel";
  VcPayload payload = {.prop = 99};

  EXPECT_EQ(CallSlot(object, 2, &arg), 0);
  EXPECT_EQ(Platform().TakeEvents().back(), "algo Init panel");
  Platform().TakeLog();
  EXPECT_EQ(CallSlot(object, 4, &payload), -22);
  EXPECT_EQ(CallSlot(object, 5, &payload), -22);
  EXPECT_EQ(CallSlot(object, 6, 7, &payload, &payload), -95);
  EXPECT_EQ(Platform().TakeLog(), (Lines{"E SetProperty: Invalid prop 99, function (nil)K",
                                         "E GetProperty: Invalid prop 99, function (nil)K",
                                         "E ProcessOps: Invalid ops 7"}));
  EXPECT_EQ(CallSlot(object, 3), 0);
  EXPECT_EQ(Platform().TakeEvents(), (Lines{"parser DeInit", "algo DeInit"}));
  CallSlot<void>(object, 1);
  EXPECT_EQ(Platform().TakeEvents().back(), "close parser");
}

TEST_F(Boundary, LibrariesOfferEveryOperationInItsSlot) {
  tarn::PostBlendHwConfig dimensions;
  tarn::ColorModeList list;
  auto request = tarn::ModeRenderInputParams();
  tarn::HwConfigOutputParams answer;
  const tarn::TarnPayload set = tarn::Wrap(&dimensions, 6);
  tarn::TarnPayload get = tarn::Wrap(&list, tarn::kZelModesList);
  const tarn::TarnPayload in = tarn::Wrap(&request);
  tarn::TarnPayload out = tarn::Wrap(&answer);
  const std::string arg = "panel";

  void* const object = MakeFakeParser(2, 0);
  CallSlot(object, 2, &arg);
  CallSlot(object, 3);
  CallSlot(object, 4, &set);
  CallSlot(object, 5, &get);
  CallSlot(object, 6, 0, &in, &out);
  CallSlot<void>(object, 1);
  EXPECT_EQ(
      Platform().TakeEvents(),
      (Lines{"parser factory 2 0", "parser Init panel", "parser DeInit", "parser SetProperty 6",
             "parser GetProperty 1", "parser ProcessOps 0", "delete parser"}));
}

std::string OutputOf(const std::string& command) {
  FILE* const pipe = popen(command.c_str(), "r");
  std::string output;
  std::array<char, 256> part = {};
  while (std::fgets(part.data(), part.size(), pipe) != nullptr) output += part.data();
  EXPECT_EQ(pclose(pipe), 0) << command;
  return output;
}

TEST_F(Boundary, LibraryExportsItsFactoryAndNeedsThePlatform) {
  const PluginLibrary library;
  Dl_info info = {};
  ASSERT_NE(dladdr(SlotsOf(library.Create().get())[2], &info), 0);
  const std::string file = info.dli_fname;
  EXPECT_EQ(OutputOf("llvm-nm -D --defined-only -j " + file), "GetVcPostBlendInterface\n");
  const std::string dynamic = OutputOf("llvm-readelf -d " + file);
  for (const char* entry : {"(RUNPATH)", "[$ORIGIN]", "NOW"}) {
    EXPECT_NE(dynamic.find(entry), std::string::npos) << entry << " missing in\n" << dynamic;
  }
  const std::string needed =
      OutputOf("llvm-readelf --needed-libs " + file +
               " | grep '[.]so' | grep -vE '^ "
               "*(libc|libc[+][+].*|libm|libunwind|libgcc_s|ld-linux.*)[.]so' | "
               "sort | tr -d ' \\n'");
  EXPECT_EQ(needed, "libcutils.soliblog.so");
}

}  // namespace
