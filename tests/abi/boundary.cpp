// SPDX-License-Identifier: Apache-2.0

// Mentions every record, id and interface that crosses the boundary, for abidw to dump
// (scripts/abi.sh): what the plug-in exports leads to few of them, for records travel by
// address.
#include <cstddef>
#include <cstdint>

#include "interface/record.h"

namespace {

template <typename Record>
constexpr uint32_t VersionOf() {
  if constexpr (requires { Record::kVersion; }) {
    return Record::kVersion;
  } else {
    return 0;
  }
}

}  // namespace

// A record with what its layout doesn't show: version, if it has one, and alignment.
template <typename Record, uint32_t version, size_t alignment>
struct Travelling {
  Record record;
};

#define EXPORTED extern "C" __attribute__((visibility("default")))
#define MENTION(name, Record)                                                   \
  EXPORTED __attribute__((used)) inline size_t name(                            \
      const Travelling<Record, VersionOf<Record>(), alignof(Record)>& record) { \
    return sizeof(record);                                                      \
  }

// What declares its two sides is mentioned by that.
#undef ZEL_DECLARE_SIDES
#define ZEL_DECLARE_SIDES(Record)                        \
  namespace velaricolor {                                \
  using Record = ::zeltarn::layout::Record<HostSide>;    \
  }                                                      \
  namespace tarn {                                       \
  using Record = ::zeltarn::layout::Record<LibrarySide>; \
  }                                                      \
  MENTION(Host##Record, velaricolor::Record)             \
  MENTION(Library##Record, tarn::Record)

#include "bridge/library.h"
#include "interface/host.h"

MENTION(HostColorTransformMatrix, velaricolor::ColorTransformMatrix)
MENTION(LibraryPccMergeInput, tarn::PccMergeInput)
MENTION(LibraryPccMergeOutput, tarn::PccMergeOutput)
MENTION(SharedPccCoeffData, pcc_coeff_data)

EXPORTED int HostIds(velaricolor::VcProperty, velaricolor::VcOps) { return 0; }
EXPORTED int LibraryIds(tarn::ZelProperty, tarn::ZelOps) { return 0; }

// Each leads to its interface, that to slots and envelope.
EXPORTED velaricolor::VcPostBlendInterface* GetVcPostBlendInterface(int, int) { return nullptr; }
EXPORTED tarn::ModeParserIntf* GetTarnZelInterface(int, int) { return nullptr; }
EXPORTED tarn::TarnAlgoIntf* GetTarnAlgoInterface(int, int) { return nullptr; }
