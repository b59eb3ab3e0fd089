// SPDX-License-Identifier: Apache-2.0

// The conversion of each block: bytes in at the parser, bytes out at the host.

#include <algorithm>
#include <map>
#include <utility>

#include "convert/block_table.h"
#include "tests/support/bytes.h"
#include "tests/support/plugin_host.h"
#include "tests/support/rows.h"

using velaricolor::HwConfigOutputParams;

namespace {

using Span = std::pair<size_t, size_t>;  // begin and end

struct Conversion {
  std::string name;  // of the block
  std::string converter;
  uint32_t version;           // and size
  std::vector<Span> carried;  // the bytes that reach the host
  Span container;             // strings and lists, no plain bytes
  std::shared_ptr<void> (*make_parsers)();
  std::shared_ptr<void> (*make_hosts)();
};

// Lists long enough for any gamma table.
template <typename Record>
std::shared_ptr<void> Make() {
  auto record = std::make_shared<Record>();
  if constexpr (requires { record->c0; }) {
    for (auto* list : {&record->c0, &record->c1, &record->c2}) list->resize(1024);
  }
  return record;
}

template <template <typename> class Config>
Conversion To(const std::string& block, const std::string& name, uint32_t version,
              const std::vector<Span>& carried, Span container = {}) {
  return {.name = block,
          .converter = "ConvertPostBlend" + name + "Payload",
          .version = version,
          .carried = carried,
          .container = std::move(container),
          .make_parsers = Make<Config<tarn::LibrarySide>>,
          .make_hosts = Make<Config<velaricolor::HostSide>>};
}

std::vector<Conversion> AllConversions() {
  using namespace zeltarn::layout;  // NOLINT(google-build-using-namespace)
  return {
      To<GamutPostBlendConfig>("PostBlendGamut", "Gamut", 117936, {{4, 5}, {8, 117936}}),
      To<GammaPostBlendConfig>("PostBlendIGC", "InvGamma", 88, {{4, 5}, {80, 81}, {84, 88}},
                               {8, 80}),
      To<GammaPostBlendConfig>("PostBlendGC", "Gamma", 88, {{4, 5}}, {8, 80}),
      To<PccPostBlendConfig>("PostBlendPCC", "PCC", 280, {{4, 5}, {8, 280}}),
      To<PaPostBlendConfig>("PostBlendPa", "Pa", 9568, {{4, 5}, {8, 292}, {296, 340}, {344, 9568}}),
      To<DitherPostBlendConfig>("PostBlendDither", "Dither", 96, {{4, 5}, {8, 96}}),
      To<PaDitherPostBlendConfig>("PostBlendPaDither", "PaDither", 88, {{4, 5}, {8, 88}}),
      To<HdrBlobPostBlendConfig>("PostBlendHdrBlob", "HdrBlob", 32, {}, {8, 32}),
      To<GameBlobPostBlendConfig>("PostBlendGameBlob", "GameBlob", 32, {{4, 5}}, {8, 32}),
      To<DePostBlendConfig>("PostBlendDE", "DE", 48, {{4, 5}, {8, 48}}),
  };
}

// Different in every byte for each `flip` (0 or 0xFE), and nowhere zero;
// containers left out.
Bytes Pattern(const Conversion& conversion, uint8_t flip, uint8_t enable) {
  Bytes bytes(conversion.version);
  for (uint32_t i = 0; i < bytes.size(); ++i) {
    if (i >= conversion.container.first && i < conversion.container.second) continue;
    bytes[i] = static_cast<uint8_t>((((i * 2654435761U) >> 24) ^ flip) | 1);
  }
  bytes[4] = enable;
  return bytes;
}

void Fill(const std::shared_ptr<void>& record, const Conversion& conversion, const Bytes& bytes) {
  auto* const to = static_cast<uint8_t*>(record.get());
  std::copy_n(bytes.data(), conversion.container.first, to);
  std::copy(bytes.data() + conversion.container.second, bytes.data() + bytes.size(),
            to + conversion.container.second);
}

Bytes Image(const Conversion& conversion, const std::shared_ptr<void>& record) {
  Bytes image = BytesAt(record.get(), conversion.version);
  std::fill(image.data() + conversion.container.first, image.data() + conversion.container.second,
            0);
  return image;
}

// `before`, where `from` has been converted into it.
Bytes Converted(const Conversion& conversion, const Bytes& from, Bytes before) {
  for (const auto& [begin, end] : conversion.carried) {
    std::copy(from.data() + begin, from.data() + end, before.data() + begin);
    if (begin == 4) before[4] = from[4] == 0 ? 0 : 1;
  }
  return before;
}

class Conversions : public PluginTest, public testing::WithParamInterface<Conversion> {
 protected:
  void SetUp() override { Start(); }
};
ZEL_TEST_ROWS(Conversions, AllConversions());

// Bench, fuzzer and zelctl walk the table: a block that has no row there, or none
// above, is noticed here.
TEST(ConversionTable, HoldsEveryBlock) {
  std::map<std::string, uint32_t> table;
  zeltarn::layout::ForEachBlock([&]<template <typename> class Config>(const std::string& name) {
    table.emplace(name, sizeof(Config<velaricolor::HostSide>));
    EXPECT_GE(name.size(), sizeof(uint64_t)) << name << ": names are compared in words";
  });
  std::map<std::string, uint32_t> conversions;
  for (const Conversion& one : AllConversions()) conversions.emplace(one.name, one.version);
  EXPECT_EQ(table, conversions);
}

TEST_P(Conversions, CarryTheirFieldsAndNothingElse) {
  const Conversion& conversion = GetParam();
  for (const uint8_t enable : Bytes{1, 0, 2, 0x80, 0xFF}) {
    SCOPED_TRACE(enable);
    const Bytes from = Pattern(conversion, 0, enable);
    const std::shared_ptr<void> parsers = conversion.make_parsers();
    Fill(parsers, conversion, from);
    // A length that is nobody's: it's copied, not computed.
    Parser().blocks = {{.hw_block = conversion.name, .payload = parsers, .len = 12345}};
    HwConfigOutputParams output;

    ASSERT_EQ(Run(velaricolor::kVcModeSwAssets, {}, &output), 0);
    ASSERT_EQ(output.payloads.size(), 1U);
    EXPECT_EQ(output.payloads[0].version, 56U);
    EXPECT_EQ(output.payloads[0].hw_block, conversion.name);
    EXPECT_EQ(output.payloads[0].len, 12345U);
    Bytes blank(conversion.version);
    for (uint32_t i = 0; i < 4; ++i) {
      blank[i] = static_cast<uint8_t>(conversion.version >> (8 * i));
    }
    EXPECT_EQ(Image(conversion, output.payloads[0].payload), Converted(conversion, from, blank))
        << "fresh";

    const Bytes before = Pattern(conversion, 0xFE, enable == 0 ? 0xFF : 0);
    const std::shared_ptr<void> hosts = conversion.make_hosts();
    Fill(hosts, conversion, before);
    output.payloads = {{.hw_block = conversion.name, .payload = hosts, .len = 1}};
    ASSERT_EQ(Run(velaricolor::kVcModeSwAssets, {}, &output), 0);
    ASSERT_EQ(output.payloads.size(), 1U);
    EXPECT_EQ(output.payloads[0].payload, hosts);
    EXPECT_EQ(output.payloads[0].len, 12345U);
    EXPECT_EQ(Image(conversion, hosts), Converted(conversion, from, before)) << "in place";
  }
}

TEST_P(Conversions, RefuseEntriesWithoutVersionOrRecord) {
  const Conversion& conversion = GetParam();
  for (const uint32_t version : {55U, 56U}) {
    SCOPED_TRACE(version);
    Parser().dither = {{.hw_block = conversion.name, .len = 12345}};
    HwConfigOutputParams output;
    output.payloads = {{.version = version, .hw_block = conversion.name, .len = 7}};

    EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), -22);
    EXPECT_EQ(Platform().TakeLog(),
              (Lines{version == 56 ? "E " + conversion.converter + ": Invalid parameters"
                                   : "E VersionCheck: invalid version 55 expected 56",
                     "E ConvertHwConfigOutputParams: Failed to convert for " + conversion.name +
                         " from tarn to velari namespace",
                     "E GetPbDitheHwConfig: Falied to convert pb dither hwe config to output"}));
    ASSERT_EQ(output.payloads.size(), 1U);
    EXPECT_EQ(output.payloads[0].version, version);
    EXPECT_EQ(output.payloads[0].payload, nullptr);
    EXPECT_EQ(output.payloads[0].len, 7U);
  }
}

TEST_P(Conversions, ExistForExactNamesOnly) {
  const Conversion& conversion = GetParam();
  const tarn::HwConfigPayload right = {.hw_block = conversion.name,
                                       .payload = conversion.make_parsers()};
  std::vector<std::string> wrong = {"", conversion.name + "X",
                                    conversion.name + std::string(1, '\0'),
                                    conversion.name.substr(0, conversion.name.size() - 1)};
  for (size_t letter = 0; letter < conversion.name.size(); ++letter) {
    wrong.push_back(conversion.name);
    wrong.back()[letter] ^= 0x20;  // the other case
  }
  for (const std::string& name : wrong) {
    SCOPED_TRACE(name);
    HwConfigOutputParams output;
    output.payloads = {{.hw_block = name}};
    Parser().dither = {right};
    EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), 0);
    EXPECT_EQ(output.payloads.size(), 2U) << "the host's entry is another block's";

    Parser().dither = {{.hw_block = name, .payload = right.payload}};
    EXPECT_EQ(Get(velaricolor::kVcPbDitherHwConfig, &output), -22);
    EXPECT_EQ(output.payloads.size(), 2U);
  }
}

}  // namespace
